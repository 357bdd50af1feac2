#include "model/Names.hpp"
#include "model/WantedText.hpp"

#include <algorithm>
#include <set>
#include <sstream>
#include <yaml-cpp/eventhandler.h>
#include <yaml-cpp/yaml.h>

namespace lanctl::model
{

namespace
{

[[noreturn]] void refuseAt(const YAML::Node& node, const std::string& reason)
{
    throw BadWanted("line " + std::to_string(node.Mark().line + 1) + ": " + reason);
}

std::string nameText(const YAML::Node& name)
{
    if (!name.IsScalar())
        refuseAt(name, "a name is expected");
    return name.Scalar();
}

/// Calls use(name, value) for each entry of a mapping. The same name twice is an error.
template <class Use>
void forEachEntry(const YAML::Node& mapping, const std::string& what, const Use& use)
{
    if (!mapping.IsMap())
        refuseAt(mapping, what + " is to be a list of names and values");
    std::set<std::string> seen;
    for (const auto& entry : mapping) {
        const std::string name = nameText(entry.first);
        if (!seen.insert(name).second)
            refuseAt(entry.first, "\"" + name + "\" is given twice");
        use(name, entry.first, entry.second);
    }
}

void readObject(WantedState& wanted, const std::string& object, const YAML::Node& mapping)
{
    forEachEntry(mapping, object,
                 [&](const std::string& key, const YAML::Node& place, const YAML::Node& value) {
                     if (!value.IsScalar())
                         refuseAt(place, object + " " + key + " is to be one value" +
                                             (value.IsNull() ? "; \"\" stands for an empty one" : ""));
                     try {
                         want(wanted, object, key, value.Scalar());
                     } catch (const BadWanted& e) {
                         refuseAt(place, e.what());
                     }
                 });
}

void readEndpoints(WantedState& wanted, const YAML::Node& mapping)
{
    forEachEntry(mapping, std::string(endpointsSection),
                 [&](const std::string& name, const YAML::Node& place, const YAML::Node& value) {
                     if (!isInterface(name))
                         refuseAt(place, "\"" + name + "\" is no interface; there are eth0, eth1 and eth2");
                     readObject(wanted, name, value);
                 });
}

void readSections(WantedState& wanted, const YAML::Node& root)
{
    forEachEntry(root, "the wanted state",
                 [&](const std::string& name, const YAML::Node& place, const YAML::Node& value) {
                     if (name == endpointsSection)
                         readEndpoints(wanted, value);
                     else if (name == lanObject || name == markingObject)
                         readObject(wanted, name, value);
                     else
                         refuseAt(place, "\"" + name + "\" is unknown; there are endpoints, lan and marking");
                 });
}

/// Throws where anything follows the first document, and looks at nothing else.
class OneDocument : public YAML::EventHandler
{
  public:
    void OnDocumentStart(const YAML::Mark& mark) override
    {
        if (m_hasBegun)
            throw BadWanted("line " + std::to_string(mark.line + 1) + ": a second document begins here");
        m_hasBegun = true;
    }
    void OnDocumentEnd() override {}
    void OnNull(const YAML::Mark&, YAML::anchor_t) override {}
    void OnAlias(const YAML::Mark&, YAML::anchor_t) override {}
    void OnScalar(const YAML::Mark&, const std::string&, YAML::anchor_t, const std::string&) override {}
    void OnSequenceStart(const YAML::Mark&, const std::string&, YAML::anchor_t,
                         YAML::EmitterStyle::value) override
    {
    }
    void OnSequenceEnd() override {}
    void OnMapStart(const YAML::Mark&, const std::string&, YAML::anchor_t, YAML::EmitterStyle::value) override
    {
    }
    void OnMapEnd() override {}

  private:
    bool m_hasBegun = false;
};

/// YAML::LoadAll would do, but that it takes a stray comma for one empty document after the other, without
/// end.
YAML::Node rootOf(const std::string& text)
{
    std::istringstream stream(text);
    YAML::Parser parser(stream);
    OneDocument document;
    while (parser.HandleNextDocument(document)) {
    }
    return YAML::Load(text);
}

} // namespace

WantedState parseWanted(const std::string& text)
{
    if (text.size() > largestWantedFile)
        throw BadWanted("it is larger than 1 MB");
    try {
        WantedState wanted;
        const YAML::Node root = rootOf(text);
        if (!root.IsNull())
            readSections(wanted, root);
        return wanted;
    } catch (const YAML::Exception& e) {
        throw BadWanted("line " + std::to_string(e.mark.line + 1) + ": " + e.msg);
    }
}

} // namespace lanctl::model
