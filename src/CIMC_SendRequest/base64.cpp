// Base64 (RFC 4648, section 4): the encoder of the credentials, and a decoder for callers.
#include "CIMC_SendRequest/base64.h"

#include <array>
#include <cstdint>
#include <cstring>

#include "cim_client.h"

namespace {

constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr unsigned char no_value = 0xFF;

// Values of the alphabet's characters.  The values of "+" and "/" stand at 27 and 31, which
// callers of the decoder rely on: the two characters themselves have none.
constexpr std::array<unsigned char, 256> make_values() {
  std::array<unsigned char, 256> table{};
  table.fill(no_value);
  for (unsigned char value = 0; value < 62; ++value)
    table[static_cast<unsigned char>(alphabet[value])] = value;
  table[27] = 62;
  table[31] = 63;
  return table;
}

constexpr std::array<unsigned char, 256> values = make_values();

constexpr char too_big[] = "String too big";

std::size_t not_negative(int size) { return size > 0 ? static_cast<std::size_t>(size) : 0; }

bool at_end(char character) { return character == '\0' || character == '='; }

}  // namespace

extern "C" {

void Encode64(char* out, const char* in, int outSize) {
  if (!out) return;
  out[0] = '\0';
  if (!in) return;
  const std::size_t room = not_negative(outSize);
  std::size_t length = 0;
  while (*in) {
    std::uint32_t group = 0;
    int missing = 3;
    for (int shift = 16; missing > 0 && *in; shift -= 8, --missing)
      group |= static_cast<std::uint32_t>(static_cast<unsigned char>(*in++)) << shift;
    for (int shift = 18; shift >= 6 * missing; shift -= 6)
      if (length < room) out[length++] = alphabet[(group >> shift) & 63];
    for (; missing > 0; --missing) out[length++] = '=';
    out[length] = '\0';
  }
}

int Decode64(char* out, const char* in, int outSize) {
  if (!out) return -1;
  out[0] = '\0';
  if (!in) return 0;
  const std::size_t room = not_negative(outSize);
  std::size_t length = 0;
  while (!at_end(*in)) {
    std::uint32_t group = 0;
    std::size_t due = 0;  // bytes: one less than characters gathered
    for (int shift = 18; shift >= 0 && !at_end(*in); shift -= 6) {
      group |= static_cast<std::uint32_t>(values[static_cast<unsigned char>(*in++)]) << shift;
      if (shift < 18) ++due;
    }
    if (length + due >= room) {
      std::memcpy(out, too_big, sizeof too_big);
      return -1;
    }
    for (int shift = 16; due > 0; shift -= 8, --due)
      out[length++] = static_cast<char>(group >> shift);
    out[length] = '\0';
  }
  return 0;
}

}  // extern "C"
