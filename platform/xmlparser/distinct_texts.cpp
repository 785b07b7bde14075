// Open addressing with short runs.
#include "distinct_texts.h"

namespace xmlparser {

const NumberedText* DistinctTexts::find(const char* bytes, std::size_t length) const {
  const Ends ends = ends_of(bytes, length);
  for (std::size_t place = first_place(ends, length), step = 0; step < longest_run; ++step) {
    const std::uint16_t number = places_[(place + step) % places_.size()];
    if (number == 0) return nullptr;
    const Entry& entry = entries_[number];
    if (entry.text.length == length && is_equal(entry, ends, bytes)) return &entry.text;
  }
  return nullptr;
}

const NumberedText* DistinctTexts::add(Arena& arena, const char* bytes, std::size_t length) {
  const char* kept = length < UINT32_MAX ? arena.copy(bytes, length) : nullptr;
  if (!kept) return nullptr;
  unnumbered_ = {kept, static_cast<std::uint32_t>(length), 0};
  if (count_ == most_distinct_texts) return &unnumbered_;

  const Ends ends = ends_of(bytes, length);
  const std::size_t first = first_place(ends, length);
  for (std::size_t step = 0; step < longest_run; ++step) {
    std::uint16_t& place = places_[(first + step) % places_.size()];
    if (place != 0) continue;
    place = ++count_;
    Entry& entry = entries_[place];
    entry = {unnumbered_, ends};
    entry.text.number = place;
    return &entry.text;
  }
  return &unnumbered_;
}

}  // namespace xmlparser
