// Open addressing with short runs.
#include "names.h"

namespace xmlparser {

NumberedName Names::add(Arena& arena, const char* bytes, std::size_t length) {
  NumberedName name{arena.copy(bytes, length), static_cast<std::uint32_t>(length), 0};
  if (!name.text || count_ == most) return name;
  const Fingerprint print = fingerprint_of(bytes, length);
  for (std::size_t step = 0; step < longest_run; ++step) {
    std::uint16_t& place = places_[(print.place + step) % places_.size()];
    if (place != 0) continue;
    place = ++count_;
    name.number = place;
    entries_[place - 1U] = {name, print.first, print.last};
    break;
  }
  return name;
}

}  // namespace xmlparser
