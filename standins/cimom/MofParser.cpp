#include "MofParser.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <strings.h>

namespace cimom
{
namespace
{

bool isAnyOf(const std::string& name, std::initializer_list<const char*> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&name](const char* word) { return strcasecmp(name.c_str(), word) == 0; });
}

std::string lowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

MofDocument parseFile(const std::string& path, const SourcePosition& position,
                      std::vector<std::string> including)
{
    std::ifstream file(path, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file) {
        throw MofError(position, "a readable file", "'" + path + "'");
    }
    return MofParser(text, path, std::move(including)).parse();
}

} // namespace

MofDocument parseMof(std::string_view text, const std::string& fileName)
{
    return MofParser(text, fileName, {}).parse();
}

MofDocument parseMofFile(const std::string& path)
{
    return parseFile(path, {path, 1, 1}, {});
}

MofParser::MofParser(std::string_view text, const std::string& fileName,
                     std::vector<std::string> includingFiles)
    : MofTokenReader(text, fileName), m_files(std::move(includingFiles))
{
    m_files.push_back(fileName);
}

MofDocument MofParser::parse()
{
    MofDocument document;
    while (token().kind != MofToken::Kind::End) {
        if (token().kind == MofToken::Kind::Pragma) {
            pragma(document);
        } else if (token().isKeyword("Qualifier")) {
            document.emplace_back(qualifierDeclaration());
        } else if (token().isPunctuation('[') || token().isKeyword("class")) {
            document.emplace_back(classDeclaration(qualifierList()));
        } else {
            fail("'Qualifier', a class or '#pragma'");
        }
    }
    return document;
}

void MofParser::pragma(MofDocument& document)
{
    if (strcasecmp(token().text.c_str(), "pragma") != 0) {
        fail("'#pragma'");
    }
    advance();
    const std::string name = expectIdentifier("the name of a pragma");
    expectPunctuation('(');
    if (token().kind != MofToken::Kind::String) {
        fail("a string");
    }
    const MofToken argument = token();
    advance();
    expectPunctuation(')');
    if (isAnyOf(name, {"namespace"})) {
        m_nameSpace = argument.text;
    } else if (isAnyOf(name, {"include"})) {
        const auto directory = std::filesystem::path(m_files.back()).parent_path();
        const std::string path = (directory / argument.text).lexically_normal().string();
        if (std::find(m_files.begin(), m_files.end(), path) != m_files.end()) {
            throw MofError(argument.position, "a file that does not include itself", argument.description());
        }
        MofDocument included = parseFile(path, argument.position, m_files);
        std::move(included.begin(), included.end(), std::back_inserter(document));
    }
    // Any other pragma (locale, source ...) says nothing about classes.
}

MofQualifierDeclaration MofParser::qualifierDeclaration()
{
    MofQualifierDeclaration declaration;
    declaration.position = token().position;
    declaration.nameSpace = m_nameSpace;
    advance();
    declaration.name = expectIdentifier("the name of a qualifier");
    expectPunctuation(':');
    declaration.type = type();
    arraySuffix(declaration.type);
    declaration.defaultValue.position = token().position;
    if (acceptPunctuation('=')) {
        declaration.defaultValue = value();
    }
    expectPunctuation(',');
    declaration.scopes = scopes();
    if (acceptPunctuation(',')) {
        expectKeyword("Flavor");
        expectPunctuation('(');
        flavors(declaration.flavors);
        expectPunctuation(')');
    }
    expectPunctuation(';');
    return declaration;
}

std::vector<std::string> MofParser::scopes()
{
    std::vector<std::string> names;
    expectKeyword("Scope");
    expectPunctuation('(');
    do {
        if (!isAnyOf(token().text, {"class", "association", "indication", "qualifier", "property",
                                    "reference", "method", "parameter", "schema", "any"})) {
            fail("the name of a scope");
        }
        names.push_back(lowerCase(token().text));
        advance();
    } while (acceptPunctuation(','));
    expectPunctuation(')');
    return names;
}

void MofParser::flavors(MofFlavors& into)
{
    do {
        flavor(into);
    } while (acceptPunctuation(','));
}

void MofParser::flavor(MofFlavors& into)
{
    if (isAnyOf(token().text, {"EnableOverride", "DisableOverride"})) {
        into.overridable = token().isKeyword("EnableOverride");
    } else if (isAnyOf(token().text, {"ToSubclass", "Restricted"})) {
        into.toSubclass = token().isKeyword("ToSubclass");
    } else if (token().isKeyword("Translatable")) {
        into.translatable = true;
    } else {
        fail("a flavor");
    }
    advance();
}

MofClass MofParser::classDeclaration(std::vector<MofQualifier> qualifiers)
{
    expectKeyword("class");
    MofClass declaration;
    declaration.position = token().position;
    declaration.nameSpace = m_nameSpace;
    declaration.qualifiers = std::move(qualifiers);
    declaration.name = expectIdentifier("the name of a class");
    if (acceptPunctuation(':')) {
        declaration.superClassPosition = token().position;
        declaration.superClass = expectIdentifier("the name of a class");
    }
    expectPunctuation('{');
    while (!acceptPunctuation('}')) {
        feature(declaration);
    }
    expectPunctuation(';');
    return declaration;
}

void MofParser::feature(MofClass& into)
{
    std::vector<MofQualifier> qualifiers = qualifierList();
    MofType featureType = type();
    const SourcePosition position = token().position;
    std::string name = expectIdentifier("the name of a property or method");
    if (acceptPunctuation('(')) {
        MofMethod method{std::move(name), std::move(featureType), std::move(qualifiers), {}, position};
        method.parameters = parameters();
        into.methods.push_back(std::move(method));
    } else {
        MofProperty property{std::move(name), std::move(featureType), std::move(qualifiers), {}, position};
        arraySuffix(property.type);
        property.defaultValue.position = token().position;
        if (acceptPunctuation('=')) {
            property.defaultValue = value();
        }
        into.properties.push_back(std::move(property));
    }
    expectPunctuation(';');
}

std::vector<MofQualifier> MofParser::qualifierList()
{
    std::vector<MofQualifier> qualifiers;
    if (!acceptPunctuation('[')) {
        return qualifiers;
    }
    do {
        qualifiers.push_back(qualifier());
    } while (acceptPunctuation(','));
    expectPunctuation(']');
    return qualifiers;
}

MofQualifier MofParser::qualifier()
{
    MofQualifier result;
    result.position = token().position;
    result.name = expectIdentifier("the name of a qualifier");
    if (token().isPunctuation('{')) {
        result.hasValue = true;
        result.value = value();
    } else if (acceptPunctuation('(')) {
        result.hasValue = true;
        result.value = value();
        expectPunctuation(')');
    }
    if (acceptPunctuation(':')) {
        // Only its form is checked: the flavors in the qualifier's declaration count.
        MofFlavors ignored;
        do {
            flavor(ignored);
        } while (token().kind == MofToken::Kind::Identifier);
    }
    return result;
}

MofType MofParser::type()
{
    MofType result;
    result.position = token().position;
    result.name = expectIdentifier("a type");
    if (token().isKeyword("ref")) {
        result.isReference = true;
        advance();
    } else if (!isAnyOf(result.name,
                        {"uint8", "sint8", "uint16", "sint16", "uint32", "sint32", "uint64", "sint64",
                         "real32", "real64", "boolean", "string", "datetime", "char16"})) {
        throw MofError(result.position, "a type", "'" + result.name + "'");
    }
    return result;
}

void MofParser::arraySuffix(MofType& into)
{
    if (!acceptPunctuation('[')) {
        return;
    }
    into.isArray = true;
    if (token().kind == MofToken::Kind::Integer && token().text.size() < 9) {
        into.arraySize = std::stoi(token().text);
        advance();
    }
    expectPunctuation(']');
}

std::vector<MofParameter> MofParser::parameters()
{
    std::vector<MofParameter> result;
    if (acceptPunctuation(')')) {
        return result;
    }
    do {
        result.push_back(parameter());
    } while (acceptPunctuation(','));
    expectPunctuation(')');
    return result;
}

MofParameter MofParser::parameter()
{
    MofParameter result;
    result.qualifiers = qualifierList();
    result.type = type();
    result.name = expectIdentifier("the name of a parameter");
    arraySuffix(result.type);
    return result;
}

MofValue MofParser::value()
{
    MofValue result;
    result.position = token().position;
    if (!acceptPunctuation('{')) {
        constant(result);
        return result;
    }
    result.isArray = true;
    if (acceptPunctuation('}')) {
        return result;
    }
    do {
        if (token().isKeyword("null")) {
            fail("a value");
        }
        constant(result);
    } while (acceptPunctuation(','));
    expectPunctuation('}');
    return result;
}

// Appends one constant; NULL appends nothing.
void MofParser::constant(MofValue& into)
{
    MofConstant result{MofConstant::Kind::Boolean, token().text, token().position};
    if (token().kind == MofToken::Kind::String) {
        into.elements.push_back(stringConstant());
        return;
    }
    if (token().kind == MofToken::Kind::Integer) {
        result.kind = MofConstant::Kind::Integer;
    } else if (token().kind == MofToken::Kind::Real) {
        result.kind = MofConstant::Kind::Real;
    } else if (token().kind == MofToken::Kind::Character) {
        result.kind = MofConstant::Kind::Character;
    } else if (token().isKeyword("null")) {
        advance();
        return;
    } else if (token().isKeyword("true") || token().isKeyword("false")) {
        result.text = lowerCase(result.text);
    } else {
        fail("a value");
    }
    advance();
    into.elements.push_back(std::move(result));
}

// Neighbouring strings are one string.
MofConstant MofParser::stringConstant()
{
    MofConstant result{MofConstant::Kind::String, "", token().position};
    while (token().kind == MofToken::Kind::String) {
        result.text += token().text;
        advance();
    }
    return result;
}

} // namespace cimom
