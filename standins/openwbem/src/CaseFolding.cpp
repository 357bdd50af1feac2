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

int differenceAt(const char* lhs, const char* rhs)
{
    return static_cast<unsigned char>(*lhs) - static_cast<unsigned char>(*rhs);
}

// Moves both texts, which begin like those of an entry, to where that ends: their bytes are compared in
// turns. Returns how many are the same.
size_t followEntry(const char*& lhs, const char*& rhs, const char* first, const char* second)
{
    size_t same = 2;
    while (first[1] || second[1]) {
        if (first[1]) {
            ++first;
            if (*++lhs != *first) {
                break;
            }
            ++same;
        }
        if (second[1]) {
            ++second;
            if (*++rhs != *second) {
                break;
            }
            ++same;
        }
    }
    return same;
}

// The difference of two characters that do not match is that of the bytes at which the entry ends that has
// the most bytes in common with them. It may be 0, and they match after all.
int differenceOfUnmatched(const char* lhs, const char* rhs)
{
    size_t most = 0;
    int difference = differenceAt(lhs, rhs);
    const auto follow = [&](const char* first, const char* second) {
        if (*lhs != *first || *rhs != *second) {
            return;
        }
        const char* leftEnd = lhs;
        const char* rightEnd = rhs;
        const size_t same = followEntry(leftEnd, rightEnd, first, second);
        if (same >= most) {
            most = same;
            difference = differenceAt(leftEnd, rightEnd);
        }
    };
    for (const CaseFolding& entry : CASE_FOLDINGS) {
        follow(entry.letter, entry.folded);
    }
    for (const CaseFolding& entry : CASE_FOLDINGS) {
        follow(entry.folded, entry.letter);
    }
    return difference;
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
        const int difference = differenceAt(lhs, rhs);
        const char* const differing = lhs;
        // Characters that differ may have their first bytes in common.
        while (lhs > matched && (isContinuation(*lhs) || isContinuation(*rhs))) {
            --lhs;
            --rhs;
        }
        if (difference == 0) {
            return 0;
        }
        if (!skipMatching(lhs, rhs)) {
            const bool isSimple = lhs != differing || (isAscii(*lhs) && isAscii(*rhs));
            return isSimple ? difference : differenceOfUnmatched(lhs, rhs);
        }
        matched = lhs;
    }
}

} // namespace OpenWBEM
