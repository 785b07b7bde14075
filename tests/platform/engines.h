// Both engines of the XML library in one program, held against each other.
#pragma once

#include <string>

#include "XMLParser.h"

namespace engines {

// What the scanner leaves to Expat.
enum class Left { Nothing, Encoding, Declarations };

// What one engine makes of a text.
class Reading {
 public:
  // Refused, or left to the other engine.
  Reading(Left left, std::string error) : left_(left), error_(std::move(error)) {}
  explicit Reading(XmlDocument* document) : document_(document) {}
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;
  ~Reading();

  Left left() const { return left_; }
  // "" when it was accepted.
  const std::string& error() const { return error_; }
  // Null when it was not.
  const XmlNode* root() const { return document_ ? document_->root : nullptr; }

 private:
  Left left_ = Left::Nothing;
  std::string error_;
  XmlDocument* document_ = nullptr;
};

// The text ends at its first NUL, as it does for parseText().
Reading scanned(const char* text);
Reading read_by_expat(const char* text);

// Where two trees differ in any field of any node; "" when they do not.
std::string difference(const XmlNode* a, const XmlNode* b);

// What sets the engines apart on a text: the verdict or a node.  "" when nothing does that is
// not on the list of what the scanner leaves to Expat.
std::string disagreement(const char* text);

}  // namespace engines
