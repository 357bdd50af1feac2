#include "MofTokenReader.hpp"

namespace cimom
{

MofTokenReader::MofTokenReader(std::string_view text, const std::string& fileName) : m_lexer(text, fileName)
{
    advance();
}

void MofTokenReader::advance()
{
    m_token = m_lexer.next();
}

void MofTokenReader::fail(const std::string& expected) const
{
    throw MofError(m_token.position, expected, m_token.description());
}

bool MofTokenReader::acceptPunctuation(char character)
{
    if (!m_token.isPunctuation(character)) {
        return false;
    }
    advance();
    return true;
}

void MofTokenReader::expectPunctuation(char character)
{
    if (!acceptPunctuation(character)) {
        fail(std::string("'") + character + "'");
    }
}

std::string MofTokenReader::expectIdentifier(const char* what)
{
    if (m_token.kind != MofToken::Kind::Identifier) {
        fail(what);
    }
    std::string text = std::move(m_token.text);
    advance();
    return text;
}

void MofTokenReader::expectKeyword(const char* word)
{
    if (!m_token.isKeyword(word)) {
        fail(std::string("'") + word + "'");
    }
    advance();
}

} // namespace cimom
