// The storage holds the text and nothing else, so it needs no alignment.
#include "error_text.h"

#include <cstdio>

namespace xmlparser {
namespace {

static_assert(sizeof(XmlParseState) == 464, "callers reserve 464 bytes");

char* text_of(XmlParseState& state) { return reinterpret_cast<char*>(state.storage); }

}  // namespace

ErrorText::ErrorText(XmlParseState* state) : state_(state) { set(""); }

void ErrorText::set(const char* what) {
  if (state_) std::snprintf(text_of(*state_), sizeof(state_->storage), "%s", what);
}

void ErrorText::set(unsigned long line, unsigned long column, const char* what) {
  if (!state_) return;
  std::snprintf(text_of(*state_), sizeof(state_->storage), "line %lu, column %lu: %s", line, column,
                what);
}

const char* error_text(const XmlParseState* state) {
  return state ? reinterpret_cast<const char*>(state->storage) : "";
}

}  // namespace xmlparser
