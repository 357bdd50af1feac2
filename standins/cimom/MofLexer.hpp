#pragma once

#include "MofError.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace cimom
{

struct MofToken {
    enum class Kind { End, Identifier, String, Character, Integer, Real, Punctuation, Pragma };

    Kind kind = Kind::End;
    // Identifier: as written. String, character: the content, escapes resolved. Integer: decimal digits with
    // an optional sign, whatever the notation in the file. Pragma: the word after "#".
    std::string text;
    SourcePosition position;

    bool isPunctuation(char character) const;
    // MOF keywords ignore case.
    bool isKeyword(const char* word) const;
    // How an error message names the token.
    std::string description() const;
};

// Cuts MOF text into tokens; blanks and both kinds of comment separate them.
class MofLexer
{
  public:
    // The text must outlive the lexer.
    MofLexer(std::string_view text, std::string fileName);

    // The next token; after the end of the text always Kind::End. Throws MofError for what is no token.
    MofToken next();

  private:
    char peek(std::size_t ahead = 0) const;
    char take();
    void skipBlanksAndComments();
    void skipBlockComment();
    MofToken identifier();
    MofToken number();
    MofToken quoted(char quote, MofToken::Kind kind);
    void escape(std::string& into);
    MofToken pragma();
    MofToken begin(MofToken::Kind kind) const;

    std::string_view m_text;
    std::size_t m_offset = 0;
    SourcePosition m_position;
};

} // namespace cimom
