#pragma once
// Code page 1253 (Windows Greek), the encoding of every text on disk. In memory all text is
// UTF-8. The table is our own; a test compares it with glibc's iconv for every byte.
#include <string>
#include <string_view>

// Bytes the code page leaves undefined are read losslessly: 0x81, 0x88, 0x8A, 0x8C-0x90,
// 0x98, 0x9A, 0x9C-0x9F become the C1 controls U+0081... of the same value, and 0xAA, 0xD2,
// 0xFF the private-use characters U+F8F9, U+F8FA, U+F8FB (the mapping the old platform used).
// Both map back to the same byte, so a record read and written back keeps its bytes.
char32_t Cp1253ToUnicode(unsigned char byte);

// The byte of a character, or -1 when the code page has none for it.
int UnicodeToCp1253(char32_t ch);

std::string Cp1253ToUtf8(std::string_view bytes);

// Characters the code page lacks become `replacement`. Invalid UTF-8 sequences count as
// characters the code page lacks.
std::string Utf8ToCp1253(std::string_view utf8, char replacement = '?');

// True when every character of the text has a byte in the code page.
bool IsCp1253Representable(std::string_view utf8);

// UTF-8 helpers that every text routine needs: code points in, code points out.
std::u32string Utf8ToU32(std::string_view utf8);
std::string U32ToUtf8(std::u32string_view text);
void AppendUtf8(std::string& out, char32_t ch);

// The run-time's Trim: leading and trailing blanks go, tabs and other spaces stay.
std::string Trim(std::string_view text);
