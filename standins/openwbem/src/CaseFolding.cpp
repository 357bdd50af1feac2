#include "CaseFolding.hpp"
#include <cstdint>

namespace OpenWBEM
{

namespace
{

enum class Pairing { shift, alternating };

// Capital letters beyond ASCII, first to last, in ascending order, and how they reach their small ones: by a
// constant distance, or, where capital and small letters alternate, by adding one to every letter as far from
// the first as an even number.
struct Capitals {
    uint32_t first;
    uint32_t last;
    Pairing pairing;
    uint32_t distance;
};

const Capitals CAPITALS[] = {
    {0xC0, 0xD6, Pairing::shift, 32}, // Latin-1 but the multiplication sign
    {0xD8, 0xDE, Pairing::shift, 32},
    {0x100, 0x12E, Pairing::alternating, 1}, // Latin Extended-A but the two i of Turkish
    {0x132, 0x136, Pairing::alternating, 1},
    {0x139, 0x147, Pairing::alternating, 1},
    {0x14A, 0x176, Pairing::alternating, 1},
    {0x179, 0x17D, Pairing::alternating, 1},
    {0x386, 0x386, Pairing::shift, 38}, // Greek; the capitals with tonos are scattered
    {0x388, 0x38A, Pairing::shift, 37},
    {0x38C, 0x38C, Pairing::shift, 64},
    {0x38E, 0x38F, Pairing::shift, 63},
    {0x391, 0x3A1, Pairing::shift, 32},
    {0x3A3, 0x3AB, Pairing::shift, 32},
    {0x400, 0x40F, Pairing::shift, 80}, // Cyrillic
    {0x410, 0x42F, Pairing::shift, 32},
    {0x460, 0x480, Pairing::alternating, 1},
    {0x48A, 0x4BE, Pairing::alternating, 1},
    {0x4C1, 0x4CD, Pairing::alternating, 1},
    {0x4D0, 0x52E, Pairing::alternating, 1},
};

const uint32_t LATIN_Y_DIAERESIS_CAPITAL = 0x178;
const uint32_t LATIN_Y_DIAERESIS = 0xFF;
const uint32_t GREEK_FINAL_SIGMA = 0x3C2;
const uint32_t GREEK_SIGMA = 0x3C3;

uint32_t foldAscii(uint32_t letter)
{
    return letter >= 'A' && letter <= 'Z' ? letter + 32 : letter;
}

uint32_t fold(uint32_t letter)
{
    if (letter < 0x80) {
        return foldAscii(letter);
    }
    for (const Capitals& range : CAPITALS) {
        if (letter < range.first) {
            break;
        }
        if (letter > range.last) {
            continue;
        }
        const bool isCapital = range.pairing == Pairing::shift || (letter - range.first) % 2 == 0;
        return isCapital ? letter + range.distance : letter;
    }
    if (letter == LATIN_Y_DIAERESIS_CAPITAL) {
        return LATIN_Y_DIAERESIS;
    }
    return letter == GREEK_FINAL_SIGMA ? GREEK_SIGMA : letter;
}

// Number of continuation bytes that the first byte of a character announces; -1 when it cannot be a first
// byte.
int continuationBytes(uint8_t first)
{
    if (first < 0x80) {
        return 0;
    }
    if (first >= 0xC2 && first < 0xE0) {
        return 1;
    }
    if (first >= 0xE0 && first < 0xF0) {
        return 2;
    }
    return first >= 0xF0 && first < 0xF5 ? 3 : -1;
}

// Bytes that are no UTF-8 get numbers beyond those of Unicode, so that they equal nothing but themselves.
const uint32_t FIRST_BYTE_NUMBER = 0x110000;

// The smallest number of a character that needs so many continuation bytes.
const uint32_t SMALLEST[] = {0, 0x80, 0x800, 0x10000};

// The number of the character at text, which is moved behind it.
uint32_t nextCharacter(const char*& text)
{
    const auto first = static_cast<uint8_t>(*text++);
    const int count = continuationBytes(first);
    if (count == 0) {
        return first;
    }
    if (count < 0) {
        return FIRST_BYTE_NUMBER + first;
    }
    uint32_t character = first & (0x3FU >> count);
    for (int i = 0; i < count; ++i) {
        const auto next = static_cast<uint8_t>(text[i]);
        if ((next & 0xC0U) != 0x80) {
            return FIRST_BYTE_NUMBER + first;
        }
        character = (character << 6U) | (next & 0x3FU);
    }
    if (character < SMALLEST[count]) {
        return FIRST_BYTE_NUMBER + first;
    }
    text += count;
    return character;
}

} // namespace

int compareIgnoringCase(const char* lhs, const char* rhs)
{
    while (true) {
        const bool isAscii = static_cast<uint8_t>(*lhs) < 0x80 && static_cast<uint8_t>(*rhs) < 0x80;
        const uint32_t left = isAscii ? foldAscii(static_cast<uint8_t>(*lhs++)) : fold(nextCharacter(lhs));
        const uint32_t right = isAscii ? foldAscii(static_cast<uint8_t>(*rhs++)) : fold(nextCharacter(rhs));
        if (left != right) {
            return left < right ? -1 : 1;
        }
        if (left == 0) {
            return 0;
        }
    }
}

} // namespace OpenWBEM
