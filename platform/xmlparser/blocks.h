// Looks for the bytes that mean something to XML, sixteen at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

// XMLPARSER_PLAIN_BLOCKS asks for the plain loop on any machine.
#if !defined(XMLPARSER_PLAIN_BLOCKS) && defined(__SSE2__)
#define XMLPARSER_SSE2_BLOCKS
#include <emmintrin.h>
#elif !defined(XMLPARSER_PLAIN_BLOCKS) && defined(__ARM_NEON) && \
    __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
#define XMLPARSER_NEON_BLOCKS
#include <arm_neon.h>
#endif

namespace xmlparser {

// Bytes beyond ASCII are negative.  What is compared at once is the compiler's choice: it knows
// what the machine has.
using Block = signed char __attribute__((vector_size(16)));

inline void load(Block& block, const char* bytes) { std::memcpy(&block, bytes, sizeof(block)); }

// Of a block in which each byte is 0 or -1, the index of the first that is -1; 16 when none is.
inline std::size_t first_set(const Block& block) {
#if defined(XMLPARSER_SSE2_BLOCKS)
  const int mask = _mm_movemask_epi8(reinterpret_cast<const __m128i&>(block));
  return static_cast<std::size_t>(__builtin_ctz(static_cast<unsigned>(mask) | 0x10000U));
#elif defined(XMLPARSER_NEON_BLOCKS)
  const auto pairs = vreinterpretq_u16_s8(reinterpret_cast<const int8x16_t&>(block));
  const auto halves = vreinterpret_u64_u8(vshrn_n_u16(pairs, 4));  // four bits for each byte
  const std::uint64_t mask = vget_lane_u64(halves, 0);
  return mask ? static_cast<std::size_t>(__builtin_ctzll(mask)) / 4 : sizeof(block);
#else
  std::size_t index = 0;
  while (index < sizeof(block) && block[index] == 0) ++index;
  return index;
#endif
}

// ---- Data: runs of ASCII characters that stand for themselves ----

// `last` ends the data, or might.
inline bool ends_run(char c, char last) {
  return static_cast<signed char>(c) < ' ' || c == '<' || c == '&' || c == last;
}

// The length of the run that sixteen bytes begin with.
inline std::size_t run_in_block(const char* bytes, char last) {
  Block block;
  load(block, bytes);
  const Block ends =
      (block < ' ') | (block == '<') | (block == '&') | (block == static_cast<signed char>(last));
  return first_set(ends);
}

// The end of the run that begins at `p`, in a text that ends at `end` with a NUL.
inline const char* end_of_run(const char* p, const char* end, char last) {
  while (end - p >= static_cast<std::ptrdiff_t>(sizeof(Block))) {
    const std::size_t length = run_in_block(p, last);
    p += length;
    if (length < sizeof(Block)) return p;
  }
  while (!ends_run(*p, last)) ++p;
  return p;
}

// ---- Names ----

inline bool ends_ascii_name(char c) {
  return static_cast<signed char>(c) <= ' ' || c == '=' || c == '>' || c == '/';
}

// Where a name may end that begins at `p`, in a text that ends at `end` with a NUL: before the
// end, nothing follows in it that ends names in tags.  A byte beyond ASCII ends it, too.
inline const char* end_of_ascii_name(const char* p, const char* end) {
  while (end - p >= static_cast<std::ptrdiff_t>(sizeof(Block))) {
    Block block;
    load(block, p);
    const Block ends = (block <= ' ') | (block == '=') | (block == '>') | (block == '/');
    const std::size_t length = first_set(ends);
    p += length;
    if (length < sizeof(Block)) return p;
  }
  while (!ends_ascii_name(*p)) ++p;
  return p;
}

}  // namespace xmlparser
