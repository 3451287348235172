#pragma once
// File names compared as the old program's file system compared them: without regard to case
// (Latin, Latin-1 and Greek letters, tonos kept), with the patterns "*" and "?", and in the
// order of a file list. The one place where that order is written down.
#include <string>
#include <string_view>

// The capital of a letter; final sigma is sigma; other characters stand for themselves.
char32_t FoldCase(char32_t c);
// A name as code points folded to capitals; bytes that are not good UTF-8 stand for themselves.
std::u32string FoldedName(std::string_view name);
// "*" any run of characters, "?" exactly one; both sides already folded.
bool GlobMatches(std::u32string_view name, std::u32string_view pattern);
// The order of a file list: by the folded name, then by the bytes of the name.
bool FileListOrder(const std::string& a, const std::string& b);
