// Owners of broker objects: each releases its object once, through the object's own table.
#pragma once

#include <cstddef>
#include <cstdlib>

#include "clientapi/interface.h"

namespace cim::broker {

template <class Object>
void release_object(Object* object) {
  if (object && object->ft && object->ft->release) object->ft->release(object);
}

// Owns one object, or none.
template <class Object>
class Owned {
 public:
  explicit Owned(Object* object = nullptr) : object_(object) {}
  ~Owned() { release_object(object_); }
  Owned(Owned&& other) noexcept : object_(other.give()) {}
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;

  Object* get() const { return object_; }
  Object* operator->() const { return object_; }
  explicit operator bool() const { return object_ && object_->ft; }

  // Where a call stores an object that becomes this owner's; the one in hand goes.
  Object** receive() {
    reset(nullptr);
    return &object_;
  }

  // Hands the object over.
  Object* give() {
    Object* object = object_;
    object_ = nullptr;
    return object;
  }

  void reset(Object* object) {
    release_object(object_);
    object_ = object;
  }

 private:
  Object* object_;
};

// The outcome of a call, with its message.
class Outcome {
 public:
  Outcome() = default;
  explicit Outcome(CIMCStatus status) : status_(status) {}
  ~Outcome() { release_object(status_.msg); }
  Outcome(const Outcome&) = delete;
  Outcome& operator=(const Outcome&) = delete;

  CIMCStatus* receive() { return &status_; }
  int code() const { return status_.rc; }
  bool failed() const { return status_.rc != 0; }

  // True when there is a message text, which may be empty.
  bool has_text() const { return status_.msg && status_.msg->hdl; }
  const CIMCString* message() const { return status_.msg; }

 private:
  CIMCStatus status_{};
};

// The characters of a string object, which stay its own; null when it has none.
inline const char* characters(CIMCString* string) {
  if (!string || !string->ft || !string->ft->getCharPtr) return nullptr;
  return string->ft->getCharPtr(string, nullptr);
}

// Objects that arguments refer to: they live until the call that takes the arguments is over.
class Kept {
 public:
  Kept() = default;
  ~Kept() {
    while (first_) {
      Node* next = first_->next;
      first_->release(first_->object);
      std::free(first_);
      first_ = next;
    }
  }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;

  // Takes `object`.  False when memory runs out: the object is then released.
  template <class Object>
  bool keep(Object* object) {
    auto* node = static_cast<Node*>(std::malloc(sizeof(Node)));
    if (!node) {
      release_object(object);
      return false;
    }
    *node = {object, [](void* kept) { release_object(static_cast<Object*>(kept)); }, first_};
    first_ = node;
    return true;
  }

 private:
  struct Node {
    void* object;
    void (*release)(void* object);
    Node* next;
  };

  Node* first_ = nullptr;
};

}  // namespace cim::broker
