#pragma once

#include "MofLexer.hpp"

#include <string>
#include <string_view>

namespace cimom
{

// MOF tokens one at a time. The expect functions demand what a grammar wants next and throw MofError
// otherwise.
class MofTokenReader
{
  public:
    // The text must outlive the reader.
    MofTokenReader(std::string_view text, const std::string& fileName);

    const MofToken& token() const { return m_token; } // the next one, not taken yet
    void advance();

    // Takes the next token if it is this character.
    bool acceptPunctuation(char character);

    void expectPunctuation(char character);
    std::string expectIdentifier(const char* what); // what: how an error message names it
    void expectKeyword(const char* word);
    [[noreturn]] void fail(const std::string& expected) const;

  private:
    MofLexer m_lexer;
    MofToken m_token;
};

} // namespace cimom
