// A document that the library has parsed for itself.
#pragma once

#include <utility>

#include "cim_client.h"
#include "model/records.h"
#include "model/release.h"

namespace cim {

// Owns the tree of a document: releases all of it that nobody has detached, also what an
// IPARAMVALUE would leave to whoever built the request, since nobody built this one.
class ParsedDocument {
 public:
  ParsedDocument() = default;
  explicit ParsedDocument(const char* text) { parse(text); }
  ParsedDocument(const ParsedDocument&) = delete;
  ParsedDocument& operator=(const ParsedDocument&) = delete;
  ~ParsedDocument() {
    if (root_ == returnAddress) returnAddress = nullptr;
    release(root_, Borrowed::Goes);
  }

  // Parses the one document of this object.  A document without a CIM element gives nothing:
  // the tree that parseXML() would hand out again is an earlier one, which may be the
  // application's and alive.
  void parse(const char* text) {
    CIM* earlier = std::exchange(returnAddress, nullptr);
    root_ = parseXML(text);
    if (!root_) returnAddress = earlier;
  }

  // The message of the document, or null.
  Message* message() const { return root_ ? root_->message : nullptr; }

 private:
  CIM* root_ = nullptr;
};

}  // namespace cim
