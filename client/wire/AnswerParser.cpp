#include "wire/AnswerParser.hpp"

#include "wire/XmlText.hpp"

#include <charconv>
#include <expat.h>
#include <memory>

namespace lanctl::wire
{

namespace
{

constexpr std::size_t deepestElement = 64;

std::string attribute(const XML_Char** attributes, std::string_view name)
{
    for (; *attributes != nullptr; attributes += 2)
        if (name == attributes[0])
            return attributes[1];
    return {};
}

/// What the parser has seen so far. Its member functions are called for each element in turn.
class AnswerReader
{
  public:
    void start(const std::string& element, const XML_Char** attributes);
    void end();
    void text(std::string_view part) { m_text += part; }
    Answer finish();
    void fail(const std::string& reason) { m_failure = reason; }
    bool failed() const { return !m_failure.empty(); }
    const std::string& failure() const { return m_failure; }

  private:
    bool inside(std::string_view parent) const { return !m_open.empty() && m_open.back() == parent; }
    void startError(const XML_Char** attributes);
    void endValue();
    Property* property();

    Answer m_answer;
    std::vector<std::string> m_open; // the elements around the present place
    std::string m_text;
    std::string m_qualifier;
    std::string m_failure;
    bool m_isCim = false;
    bool m_hasMessage = false;
    bool m_hasResponse = false;
};

Property* AnswerReader::property()
{
    if (m_answer.instances.empty() || m_answer.instances.back().properties.empty())
        return nullptr;
    return &m_answer.instances.back().properties.back();
}

void AnswerReader::start(const std::string& element, const XML_Char** attributes)
{
    if (m_open.size() == deepestElement)
        return fail("elements are nested too deeply");
    if (m_open.empty())
        m_isCim = element == "CIM";
    m_text.clear();
    if (element == "MESSAGE" && inside("CIM")) {
        m_hasMessage = true;
        m_answer.id = attribute(attributes, "ID");
    } else if (element == "IMETHODRESPONSE" || element == "METHODRESPONSE") {
        m_hasResponse = inside("SIMPLERSP");
        m_answer.method = attribute(attributes, "NAME");
    } else if (element == "ERROR") {
        startError(attributes);
    } else if (element == "INSTANCE") {
        m_answer.instances.push_back({attribute(attributes, "CLASSNAME"), {}});
    } else if (element == "PROPERTY" && inside("INSTANCE")) {
        m_answer.instances.back().properties.push_back(
            {attribute(attributes, "NAME"), attribute(attributes, "TYPE"), std::nullopt, {}});
    } else if (element == "QUALIFIER") {
        m_qualifier = attribute(attributes, "NAME");
    }
    m_open.push_back(element);
}

void AnswerReader::startError(const XML_Char** attributes)
{
    const std::string code = attribute(attributes, "CODE");
    AnswerError error;
    const auto [end, problem] = std::from_chars(code.data(), code.data() + code.size(), error.code);
    if (problem != std::errc() || end != code.data() + code.size())
        return fail("an error has no code");
    error.description = attribute(attributes, "DESCRIPTION");
    m_answer.error = std::move(error);
}

void AnswerReader::end()
{
    const std::string element = std::move(m_open.back());
    m_open.pop_back();
    if (element == "VALUE")
        endValue();
    m_text.clear();
}

void AnswerReader::endValue()
{
    if (inside("RETURNVALUE"))
        m_answer.returnValue = m_text;
    else if (inside("PROPERTY") && property() != nullptr)
        property()->value = m_text;
    else if (inside("QUALIFIER") && m_open.size() > 1 && m_open[m_open.size() - 2] == "PROPERTY" &&
             property() != nullptr)
        property()->qualifiers[m_qualifier] = m_text;
}

Answer AnswerReader::finish()
{
    if (!m_isCim || !m_hasMessage || !m_hasResponse)
        throw MalformedAnswer("it is not a CIM-XML response");
    return std::move(m_answer);
}

/// What expat hands to the functions that it calls. A failure is kept and parsing stopped, as no exception
/// may pass through expat.
struct Parsing {
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser{
        XML_ParserCreate("UTF-8"), XML_ParserFree};
    AnswerReader reader;
};

Parsing& parsing(void* data)
{
    return *static_cast<Parsing*>(data);
}

void stopAfterFailure(Parsing& run)
{
    if (run.reader.failed())
        XML_StopParser(run.parser.get(), XML_FALSE);
}

void XMLCALL onStart(void* data, const XML_Char* element, const XML_Char** attributes)
{
    parsing(data).reader.start(element, attributes);
    stopAfterFailure(parsing(data));
}

void XMLCALL onEnd(void* data, const XML_Char* /*element*/)
{
    parsing(data).reader.end();
}

void XMLCALL onText(void* data, const XML_Char* part, int length)
{
    parsing(data).reader.text({part, static_cast<std::size_t>(length)});
}

/// No answer has a document type. One could only bring entities that expand without end.
void XMLCALL onDoctype(void* data, const XML_Char* /*name*/, const XML_Char* /*system*/,
                       const XML_Char* /*public*/, int /*internal*/)
{
    parsing(data).reader.fail("it has a document type");
    stopAfterFailure(parsing(data));
}

void registerHandlers(Parsing& run)
{
    XML_Parser parser = run.parser.get();
    XML_SetUserData(parser, &run);
    XML_SetElementHandler(parser, onStart, onEnd);
    XML_SetCharacterDataHandler(parser, onText);
    XML_SetStartDoctypeDeclHandler(parser, onDoctype);
}

std::string problemOf(const Parsing& run)
{
    if (run.reader.failed())
        return run.reader.failure();
    XML_Parser parser = run.parser.get();
    return std::string("line ") + std::to_string(XML_GetCurrentLineNumber(parser)) + ": " +
           XML_ErrorString(XML_GetErrorCode(parser));
}

} // namespace

Answer parseAnswer(std::string_view xml)
{
    const std::string text = repaired(xml);
    Parsing run;
    if (!run.parser)
        throw std::bad_alloc();
    registerHandlers(run);
    if (XML_Parse(run.parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE) != XML_STATUS_OK)
        throw MalformedAnswer(problemOf(run));
    return run.reader.finish();
}

} // namespace lanctl::wire
