// The result of an operation: a value, or the CIM error that took its place.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace sandbox {

// The CIM status codes (DSP0200, section 5.2.1); the numbers go over the wire.
enum class ErrorCode {
  Failed = 1,
  AccessDenied = 2,
  InvalidNamespace = 3,
  InvalidParameter = 4,
  InvalidClass = 5,
  NotFound = 6,
  NotSupported = 7,
  AlreadyExists = 11,
  NoSuchProperty = 12,
  TypeMismatch = 13,
  QueryLanguageNotSupported = 14,
  InvalidQuery = 15,
  MethodNotAvailable = 16,
  MethodNotFound = 17,
};

struct Error {
  ErrorCode code;
  std::string description;  // for people, in one sentence without a full stop
};

// Holds a T, or the Error that prevented it.  `value()` may be asked only of a success.
template <class T>
class Outcome {
 public:
  Outcome(T value) : content_(std::move(value)) {}      // NOLINT(google-explicit-constructor)
  Outcome(Error error) : content_(std::move(error)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return content_.index() == 0; }
  const T& value() const { return *std::get_if<0>(&content_); }
  T& value() { return *std::get_if<0>(&content_); }
  const Error& error() const { return *std::get_if<1>(&content_); }

  const T& operator*() const { return value(); }
  T& operator*() { return value(); }
  const T* operator->() const { return std::get_if<0>(&content_); }
  T* operator->() { return std::get_if<0>(&content_); }

 private:
  std::variant<T, Error> content_;
};

// What an operation returns that has nothing to hand out.
struct Done {};

}  // namespace sandbox
