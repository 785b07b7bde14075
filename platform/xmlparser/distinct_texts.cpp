// Open addressing with short runs.
#include "distinct_texts.h"

namespace xmlparser {

NumberedText DistinctTexts::add(Arena& arena, const char* bytes, std::size_t length) {
  NumberedText text{arena.copy(bytes, length), static_cast<std::uint32_t>(length), 0};
  if (!text.text || count_ == most) return text;
  const Fingerprint print = fingerprint_of(bytes, length);
  for (std::size_t step = 0; step < longest_run; ++step) {
    std::uint16_t& place = places_[(print.place + step) % places_.size()];
    if (place != 0) continue;
    place = ++count_;
    text.number = place;
    entries_[place - 1U] = {text, print.first, print.last};
    break;
  }
  return text;
}

}  // namespace xmlparser
