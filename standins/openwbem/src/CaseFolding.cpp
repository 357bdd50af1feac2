#include "CaseFolding.hpp"
#include "CaseFoldingTable.hpp"
#include <cstring>

namespace OpenWBEM
{

namespace
{

bool isAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

bool isContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80;
}

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool beginsWith(const char* text, const char* beginning)
{
    return strncmp(text, beginning, strlen(beginning)) == 0;
}

// Moves both texts behind a letter and what it folds into, if that is what they begin with.
bool skipFolded(const char*& letter, const char*& folded)
{
    for (const CaseFolding& entry : CASE_FOLDINGS) {
        if (beginsWith(letter, entry.letter) && beginsWith(folded, entry.folded)) {
            letter += strlen(entry.letter);
            folded += strlen(entry.folded);
            return true;
        }
    }
    return false;
}

// Moves both texts, which differ at their first byte, behind characters that match.
bool skipMatching(const char*& lhs, const char*& rhs)
{
    if (isAscii(*lhs) && isAscii(*rhs)) {
        const bool same = lowered(*lhs) == lowered(*rhs);
        lhs += same ? 1 : 0;
        rhs += same ? 1 : 0;
        return same;
    }
    return skipFolded(lhs, rhs) || skipFolded(rhs, lhs);
}

} // namespace

int compareIgnoringCase(const char* lhs, const char* rhs)
{
    const char* matched = lhs; // everything before it
    while (true) {
        while (*lhs && *lhs == *rhs) {
            ++lhs;
            ++rhs;
        }
        const int difference = static_cast<unsigned char>(*lhs) - static_cast<unsigned char>(*rhs);
        // Characters that differ may have their first bytes in common.
        while (lhs > matched && (isContinuation(*lhs) || isContinuation(*rhs))) {
            --lhs;
            --rhs;
        }
        if (difference == 0 || !skipMatching(lhs, rhs)) {
            return difference;
        }
        matched = lhs;
    }
}

} // namespace OpenWBEM
