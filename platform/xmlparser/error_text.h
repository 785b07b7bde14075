// Why a parse failed, kept in the storage that the caller provides.
#pragma once

#include "XMLParser.h"

namespace xmlparser {

// Writes nothing but the storage, and nothing at all when there is none.
class ErrorText {
 public:
  // Begins with "".
  explicit ErrorText(XmlParseState* state);

  void set(const char* what);
  // Line and column count from 1.
  void set(unsigned long line, unsigned long column, const char* what);

 private:
  XmlParseState* state_;
};

const char* error_text(const XmlParseState* state);

}  // namespace xmlparser
