// The characters of XML 1.0.  Texts are UTF-8 and end with a NUL.
#pragma once

#include <cstddef>
#include <cstdint>

namespace xmlparser {

inline bool is_white(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }

inline bool is_beyond_ascii(char c) { return static_cast<signed char>(c) < 0; }

// Whether a document may hold the character, written as it is or by its number.
bool is_character(std::uint32_t code);

// Bytes of the character beyond ASCII that begins at `p`; 0 when it is none that a document may
// hold, or is not written in its one right way.
std::size_t length_of_character(const char* p);

// Writes a character in UTF-8, up to 4 bytes; returns how many.
std::size_t write_character(std::uint32_t code, char* bytes);

// The end of the name that begins at `p`; `p` itself when none begins there.
const char* end_of_name(const char* p);

}  // namespace xmlparser
