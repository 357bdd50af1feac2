#include "XmlElement.hpp"

#include <algorithm>
#include <array>
#include <exception>
#include <expat.h>
#include <iterator>
#include <memory>

namespace cimom
{
namespace
{

const std::size_t deepest = 100; // elements within one another

// References to characters, and to the entities that XML itself has.
bool isKnownReference(std::string_view behindAmpersand)
{
    static const std::array<std::string_view, 6> known = {"#", "amp;", "lt;", "gt;", "quot;", "apos;"};
    return std::any_of(known.begin(), known.end(), [behindAmpersand](std::string_view candidate) {
        return behindAmpersand.substr(0, candidate.size()) == candidate;
    });
}

// Builds the tree from what expat reports.
class Builder
{
  public:
    explicit Builder(std::string_view document);
    XmlElement build();

  private:
    struct ParserDeleter {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    static void onStart(void* self, const XML_Char* name, const XML_Char** attributes);
    static void onEnd(void* self, const XML_Char* name);
    static void onText(void* self, const XML_Char* text, int length);
    static void onDocumentType(void* self, const XML_Char* name, const XML_Char* systemId,
                               const XML_Char* publicId, int hasDeclarations);
    template <class Work>
    void guarded(const Work& work) noexcept;
    void start(const XML_Char* name, const XML_Char** attributes);
    void checkDocumentType(bool hasDeclarations) const;

    std::string_view m_document;
    std::unique_ptr<XML_ParserStruct, ParserDeleter> m_parser;
    XmlElement m_top;                        // around the outermost element
    std::vector<XmlElement*> m_open{&m_top}; // from there down; the siblings of an open element come later
    std::exception_ptr m_thrown;
};

Builder::Builder(std::string_view document) : m_document(document), m_parser(XML_ParserCreate("UTF-8"))
{
    if (!m_parser) {
        throw std::bad_alloc();
    }
    XML_SetUserData(m_parser.get(), this);
    XML_SetElementHandler(m_parser.get(), &Builder::onStart, &Builder::onEnd);
    XML_SetCharacterDataHandler(m_parser.get(), &Builder::onText);
    XML_SetStartDoctypeDeclHandler(m_parser.get(), &Builder::onDocumentType);
}

XmlElement Builder::build()
{
    if (m_document.find('\0') != std::string_view::npos) {
        throw XmlError("not UTF-8"); // the parser would take it for UTF-16
    }
    const auto status =
        XML_Parse(m_parser.get(), m_document.data(), static_cast<int>(m_document.size()), XML_TRUE);
    if (m_thrown) {
        std::rethrow_exception(m_thrown);
    }
    if (status != XML_STATUS_OK) {
        throw XmlError(XML_ErrorString(XML_GetErrorCode(m_parser.get())));
    }
    return std::move(m_top.children.front());
}

// No exception may pass through the parser, which is written in C.
template <class Work>
void Builder::guarded(const Work& work) noexcept
{
    try {
        work();
    } catch (...) {
        m_thrown = std::current_exception();
        XML_StopParser(m_parser.get(), XML_FALSE);
    }
}

void Builder::start(const XML_Char* name, const XML_Char** attributes)
{
    if (m_open.size() > deepest) {
        throw XmlError("nested too deeply");
    }
    XmlElement& element = m_open.back()->children.emplace_back();
    element.name = name;
    for (; *attributes != nullptr; attributes += 2) {
        element.attributes.emplace_back(attributes[0], attributes[1]);
    }
    m_open.push_back(&element);
}

// The document type may declare entities in another file. The parser does not know these and silently drops
// references to them.
void Builder::checkDocumentType(bool hasDeclarations) const
{
    if (hasDeclarations) {
        throw XmlError("a document type with declarations");
    }
    for (std::size_t at = m_document.find('&'); at != std::string_view::npos;
         at = m_document.find('&', at + 1)) {
        if (!isKnownReference(m_document.substr(at + 1))) {
            throw XmlError("unknown entity");
        }
    }
}

void Builder::onStart(void* self, const XML_Char* name, const XML_Char** attributes)
{
    auto* builder = static_cast<Builder*>(self);
    builder->guarded([&] { builder->start(name, attributes); });
}

void Builder::onEnd(void* self, const XML_Char*)
{
    static_cast<Builder*>(self)->m_open.pop_back();
}

void Builder::onText(void* self, const XML_Char* text, int length)
{
    auto* builder = static_cast<Builder*>(self);
    builder->guarded([&] { builder->m_open.back()->text.append(text, static_cast<std::size_t>(length)); });
}

void Builder::onDocumentType(void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                             int hasDeclarations)
{
    auto* builder = static_cast<Builder*>(self);
    builder->guarded([&] { builder->checkDocumentType(hasDeclarations != 0); });
}

} // namespace

const XmlElement XmlElement::none;

const XmlElement& XmlElement::child(std::string_view childName) const
{
    const auto found = std::find_if(children.begin(), children.end(),
                                    [childName](const XmlElement& child) { return child.name == childName; });
    return found != children.end() ? *found : none;
}

std::vector<std::reference_wrapper<const XmlElement>>
XmlElement::childrenNamed(std::string_view childName) const
{
    std::vector<std::reference_wrapper<const XmlElement>> result;
    std::copy_if(children.begin(), children.end(), std::back_inserter(result),
                 [childName](const XmlElement& child) { return child.name == childName; });
    return result;
}

bool XmlElement::hasAttribute(std::string_view attributeName) const
{
    return std::any_of(attributes.begin(), attributes.end(),
                       [attributeName](const auto& attribute) { return attribute.first == attributeName; });
}

const char* XmlElement::attribute(std::string_view attributeName) const
{
    const auto found =
        std::find_if(attributes.begin(), attributes.end(),
                     [attributeName](const auto& attribute) { return attribute.first == attributeName; });
    return found != attributes.end() ? found->second.c_str() : "";
}

XmlElement parseXml(std::string_view document)
{
    return Builder(document).build();
}

} // namespace cimom
