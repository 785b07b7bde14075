/**
 * @file cim_client.hpp
 * @brief Owners, ranges, results and typed values for C++ programs, over cim_client.h alone.
 *
 * Header only, C++17. It compiles with -fno-exceptions and -fno-rtti, too, and throws nothing
 * itself; std::string and std::vector may throw when memory runs out.
 *
 * Conventions that hold for every declaration below
 *
 *   Cost        an owner is one pointer, an operation is the C call with its arguments: names
 *               given as `const char *` are lent to it, not copied.
 *   Texts       a `std::string_view` that is handed out lies in its record and lives as long.
 *               A `const char *` that is handed in ends with a NUL.
 *   Names       are found without regard to the case of ASCII letters, as CIM wants it.
 *   Failures    an empty owner, an empty optional or false: absent, of another form, or no memory.
 *   Escaping    nothing escapes by itself. What goes over CIM-XML and holds "<" or "&" is escaped
 *               by escape() or BasicClient::outgoing(); what comes back is plain again.
 *   Threads     as in cim_client.h: one operation or parse at a time. Client leaves that to the
 *               program; SharedClient takes the lock #cim_client::reader_mutex for each of them.
 */
#ifndef CIM_CLIENT_HPP
#define CIM_CLIENT_HPP

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <utility>
#include <vector>

#include "cim_client.h"

/** @cond how reals become texts */
#if !defined(__cpp_lib_to_chars) || defined(CIM_CLIENT_WITHOUT_REAL_CHARCONV)
#include <clocale>
#include <cstdio>
#define CIM_CLIENT_REALS_BY_PRINTF 1
#else
#define CIM_CLIENT_REALS_BY_PRINTF 0
#endif
/** @endcond */

/** The C++ face of the client library. */
namespace cim_client {

/* ---- Locks ---------------------------------------------------------------- */

/** Serialises what reads documents, once per process: see ReaderLock. */
inline std::mutex reader_mutex;

/**
 * Holds #reader_mutex while it lives. It is taken by SharedClient, and is for everything else that
 * must not run beside it, such as a direct call of a C operation. It does not nest: while a
 * thread holds one, it uses no SharedClient and releases no document of parse<ReaderLock>().
 */
class ReaderLock {
 public:
  /** Waits for the mutex. */
  ReaderLock() : guard_(reader_mutex) {}
  ReaderLock(const ReaderLock &) = delete;
  ReaderLock &operator=(const ReaderLock &) = delete;

 private:
  std::lock_guard<std::mutex> guard_;
};

/** Holds nothing: for programs in which one thread alone runs operations. */
class NoLock {
 public:
  /** Does nothing. */
  NoLock() noexcept {}
};

/* ---- Records: how each is released and copied ----------------------------- */

/**
 * How a record is released: `release(T *)`. There is one for every record of cim_client.h that
 * has a Free_ function, for its handle, and for texts.
 */
template <class T>
struct Record;

/** How a record and the nodes after it are copied: `copy(const T *, T **)`. */
template <class T>
struct Copying;

/** @cond the two lists from which the traits are made */
/* clang-format off */
#define CIM_CLIENT_RECORDS(X)                                                                     \
  X(CIM) X(Class) X(ClassName) X(ClassPath) X(DeclGroup) X(DeclGroupWithName)                     \
  X(DeclGroupWithPath) X(Declaration) X(Error) X(ExpMethodCall) X(ExpMethodResponse)              \
  X(ExpParamValue) X(IMethodCall) X(IMethodResponse) X(IParamValue) X(IReturnValue) X(Instance)   \
  X(InstanceName) X(InstancePath) X(KeyBinding) X(KeyValue) X(LocalClassPath)                     \
  X(LocalInstancePath) X(LocalNamespacePath) X(Message) X(Method) X(MethodCall) X(MethodResponse) \
  X(MultiExpReq) X(MultiExpRsp) X(MultiReq) X(MultiRsp) X(NamedInstance) X(NamedObject)           \
  X(Namespace) X(NamespacePath) X(Object) X(ObjectName) X(ObjectPath) X(ObjectWithLocalPath)      \
  X(ObjectWithPath) X(ParamValue) X(Parameter) X(ParameterArray) X(ParameterRefArray)             \
  X(ParameterReference) X(Property) X(PropertyArray) X(PropertyReference) X(Qualifier)            \
  X(QualifierDecl) X(QualifierFlavor) X(ResponseDestination) X(ReturnValue) X(Scope)              \
  X(SimpleExpReq) X(SimpleExpRsp) X(SimpleReq) X(SimpleReqAck) X(SimpleRsp) X(Table)              \
  X(TableCellDecl) X(TableCellReference) X(TableRow) X(TableRowDecl) X(Value) X(ValueArray)       \
  X(ValueNull) X(ValueRefArray) X(ValueReference)

#define CIM_CLIENT_COPIES(X)                                                                      \
  X(ClassName) X(ClassPath) X(Instance) X(InstanceName) X(InstancePath) X(KeyBinding) X(KeyValue) \
  X(LocalClassPath) X(LocalInstancePath) X(LocalNamespacePath) X(NamedInstance) X(Namespace)      \
  X(NamespacePath) X(Property) X(PropertyArray) X(PropertyReference) X(Qualifier)                 \
  X(QualifierFlavor) X(Value) X(ValueArray) X(ValueReference)
/* clang-format on */
#define CIM_CLIENT_RECORD(T)                                      \
  template <>                                                     \
  struct Record<T> {                                              \
    static void release(T *record) noexcept { Free_##T(record); } \
  };
#define CIM_CLIENT_COPY(T)                                    \
  template <>                                                 \
  struct Copying<T> {                                         \
    static int copy(const T *source, T **copy_out) noexcept { \
      return Clone_##T(source, copy_out);                     \
    }                                                         \
  };
CIM_CLIENT_RECORDS(CIM_CLIENT_RECORD)
CIM_CLIENT_COPIES(CIM_CLIENT_COPY)
#undef CIM_CLIENT_RECORDS
#undef CIM_CLIENT_COPIES
#undef CIM_CLIENT_RECORD
#undef CIM_CLIENT_COPY

template <>
struct Record<struct client_Configuration> {
  static void release(struct client_Configuration *handle) noexcept {
    Free_client_Configuration(handle);
  }
};
template <>
struct Record<char> {
  static void release(char *text) noexcept { Free_CIMName(text); }
};
template <>
struct Copying<char> {
  static int copy(const char *source, char **copy_out) noexcept {
    return Clone_CIMName(source, copy_out);
  }
};
/** @endcond */

/** True when records of type T form lists. */
template <class T, class = void>
struct IsList : std::false_type {};
/** True when records of type T form lists: the last field is `next`. */
template <class T>
struct IsList<T, std::void_t<decltype(T::next)>> : std::true_type {};

/* ---- Ranges over lists ---------------------------------------------------- */

/** Goes through a list, node by node. */
template <class T>
class NodeIterator {
 public:
  using iterator_category = std::forward_iterator_tag; /**< any number of passes */
  using value_type = std::remove_const_t<T>;           /**< the record */
  using difference_type = std::ptrdiff_t;              /**< distances */
  using pointer = T *;                                 /**< the node */
  using reference = T &;                               /**< the node */

  constexpr NodeIterator() noexcept = default;
  /** Stands at @p node; null is the end. */
  constexpr explicit NodeIterator(T *node) noexcept : node_(node) {}
  /** @return the node */
  constexpr T &operator*() const noexcept { return *node_; }
  /** @return the node */
  constexpr T *operator->() const noexcept { return node_; }
  /** Goes on to the next node. */
  constexpr NodeIterator &operator++() noexcept { return node_ = node_->next, *this; }
  /** Goes on to the next node. @return where it stood before */
  constexpr NodeIterator operator++(int) noexcept {
    const NodeIterator before = *this;
    ++*this;
    return before;
  }
  /** @return true when both stand at the same node */
  friend constexpr bool operator==(NodeIterator a, NodeIterator b) noexcept {
    return a.node_ == b.node_;
  }
  /** @return true when they stand at different nodes */
  friend constexpr bool operator!=(NodeIterator a, NodeIterator b) noexcept {
    return a.node_ != b.node_;
  }

 private:
  T *node_ = nullptr;
};

/** The nodes of a list that somebody else owns. */
template <class T>
class Nodes {
 public:
  static_assert(IsList<T>::value, "these records form no lists");
  /** The list that begins at @p first; null is the empty list. */
  constexpr explicit Nodes(T *first) noexcept : first_(first) {}
  /** @return the first node */
  constexpr NodeIterator<T> begin() const noexcept { return NodeIterator<T>(first_); }
  /** @return the end */
  constexpr NodeIterator<T> end() const noexcept { return NodeIterator<T>(); }
  /** @return true when there is no node */
  constexpr bool empty() const noexcept { return !first_; }
  /** @return how many nodes there are; goes through the list */
  constexpr std::size_t size() const noexcept {
    std::size_t count = 0;
    for (T *node = first_; node; node = node->next) ++count;
    return count;
  }

 private:
  T *first_;
};

/** @return the nodes from @p first on: `for (Property &p : nodes(instance.properties))` */
template <class T>
constexpr Nodes<T> nodes(T *first) noexcept {
  return Nodes<T>(first);
}

/**
 * @return the first node of a list with this name; null when there is none. For every record with
 *         a field `name`: properties, keys, parameters, qualifiers, methods ...
 */
template <class T>
constexpr T *find(T *list, std::string_view name) noexcept;

/* ---- Owners --------------------------------------------------------------- */

/**
 * Owns a record with everything in it, or a list: releases it with its Free_ function. As big as
 * a pointer. An owner of a list is a range over its nodes.
 *
 * An IParamValue borrows its parameters: its owner leaves them.
 * @tparam T     the record
 * @tparam Lock  held during the release; matters for CIM alone
 */
template <class T, class Lock = NoLock>
class [[nodiscard]] Owner {
 public:
  /** Owns nothing. */
  constexpr Owner() noexcept = default;
  /** Owns nothing. */
  constexpr Owner(std::nullptr_t) noexcept {}
  /** Owns @p record from now on; null is nothing. */
  constexpr explicit Owner(T *record) noexcept : record_(record) {}
  /** Takes over what @p other owns. */
  Owner(Owner &&other) noexcept : record_(other.release()) {}
  /** Releases what it owns and takes over what @p other owns. */
  Owner &operator=(Owner &&other) noexcept {
    reset(other.release());
    return *this;
  }
  Owner(const Owner &) = delete;
  Owner &operator=(const Owner &) = delete;
  ~Owner() { reset(); }

  /** @return true when it owns a record */
  constexpr explicit operator bool() const noexcept { return record_; }
  /** @return the record, or the first node; null when it owns nothing */
  constexpr T *get() const noexcept { return record_; }
  /** @return the record, which must be there */
  constexpr T &operator*() const noexcept { return *record_; }
  /** @return the record, which must be there */
  constexpr T *operator->() const noexcept { return record_; }

  /** Gives the record away. @return it; null when there was none */
  [[nodiscard]] T *release() noexcept { return std::exchange(record_, nullptr); }
  /** Releases what it owns and owns @p record instead. */
  void reset(T *record = nullptr) noexcept {
    T *old = std::exchange(record_, record);
    if (!old || old == record) return;
    [[maybe_unused]] const Lock lock;
    Record<T>::release(old);
  }
  /** Releases what it owns. @return where a C function puts a new record */
  T **out() noexcept {
    reset();
    return &record_;
  }
  /** @return where a C function finds the list to which it appends */
  T **list() noexcept { return &record_; }

  /** Takes the first node off a list. @return it alone; nothing of an empty list */
  Owner take_first() noexcept {
    static_assert(IsList<T>::value, "these records form no lists");
    Owner first(release());
    if (first) record_ = std::exchange(first->next, nullptr);
    return first;
  }

  /** @return the first node of a list */
  template <class R = T, std::enable_if_t<IsList<R>::value, int> = 0>
  NodeIterator<R> begin() const noexcept {
    return NodeIterator<R>(record_);
  }
  /** @return the end of a list */
  template <class R = T, std::enable_if_t<IsList<R>::value, int> = 0>
  NodeIterator<R> end() const noexcept {
    return NodeIterator<R>();
  }

 private:
  T *record_ = nullptr;
};

/** Owns a handle. */
using Handle = Owner<struct client_Configuration>;
/** Owns a text. */
using Text = Owner<char>;

static_assert(sizeof(Handle) == sizeof(struct client_Configuration *));
static_assert(sizeof(Text) == sizeof(char *));
static_assert(sizeof(Owner<NamedInstance>) == sizeof(NamedInstance *));
static_assert(sizeof(Owner<CIM, ReaderLock>) == sizeof(CIM *));

/** @return a new record, all zero; nothing when memory runs out */
template <class T>
Owner<T> make() noexcept {
  return Owner<T>(static_cast<T *>(std::calloc(1, sizeof(T))));
}

/**
 * @return a copy of @p source and, of a list, of the nodes after it; nothing for null or when
 *         memory runs out. Class origins and reference classes keep their first character only
 */
template <class T>
Owner<T> copy(const T *source) noexcept {
  Owner<T> result;
  if (Copying<T>::copy(source, result.out()) != 0) result.reset();
  return result;
}

/** Appends @p more to a list. */
template <class T>
void append(Owner<T> &list, Owner<T> more) noexcept {
  T **end = list.list();
  while (*end) end = &(*end)->next;
  *end = more.release();
}

/**
 * Cuts a node off the nodes after it while it lives. The operations send a list where they are
 * given one, and GetInstance() may leave its name cut off.
 */
template <class T>
class Alone {
 public:
  /** Cuts @p node off. */
  explicit Alone(T &node) noexcept : node_(node), rest_(std::exchange(node.next, nullptr)) {}
  Alone(const Alone &) = delete;
  Alone &operator=(const Alone &) = delete;
  ~Alone() { node_.next = rest_; }

 private:
  T &node_;
  T *rest_;
};

/* ---- Results -------------------------------------------------------------- */

/** What came of an operation. */
enum class Outcome {
  Values,       /**< it handed something out */
  Nothing,      /**< nothing was found, or no answer came, or one of another shape: the C interface
                     does not tell these apart */
  Failed,       /**< the object manager reported an error */
  Unauthorised, /**< the object manager refused user or password */
};

/** The status codes of CIM operations: what status() may be. */
enum class Status : int {
  None = 0,                       /**< no error */
  Failed = 1,                     /**< a general error */
  AccessDenied = 2,               /**< not for this user */
  InvalidNamespace = 3,           /**< no such namespace */
  InvalidParameter = 4,           /**< a parameter was wrong */
  InvalidClass = 5,               /**< no such class */
  NotFound = 6,                   /**< no such object */
  NotSupported = 7,               /**< the operation is not supported */
  ClassHasChildren = 8,           /**< the class has subclasses */
  ClassHasInstances = 9,          /**< the class has instances */
  InvalidSuperclass = 10,         /**< no such superclass */
  AlreadyExists = 11,             /**< the object exists already */
  NoSuchProperty = 12,            /**< no such property */
  TypeMismatch = 13,              /**< a value is not of its type */
  QueryLanguageNotSupported = 14, /**< the query language is not supported */
  InvalidQuery = 15,              /**< the query is wrong */
  MethodNotAvailable = 16,        /**< the method cannot be run */
  MethodNotFound = 17,            /**< no such method */
  Unauthorised = 401,             /**< user or password refused; the library's own code */
};

/** @return the number that an error has; -1 when it has none, Status::None without an error */
inline Status status(const Error *error) noexcept;

/** @return the description of an error; empty when there is none */
inline std::string_view description(const Error *error) noexcept {
  return error && error->description ? std::string_view(error->description) : std::string_view();
}

/** @return the outcome of an operation that handed something out, or not, beside @p error */
inline Outcome outcome_of(bool has_values, const Error *error) noexcept {
  if (error) return status(error) == Status::Unauthorised ? Outcome::Unauthorised : Outcome::Failed;
  return has_values ? Outcome::Values : Outcome::Nothing;
}

/**
 * What an operation handed out, or its error. Of lists it is a range. True when the outcome is
 * Outcome::Values.
 */
template <class T>
class [[nodiscard]] Result {
 public:
  /** Takes over both. */
  Result(Owner<T> values, Owner<Error> error) noexcept
      : values_(std::move(values)), error_(std::move(error)) {}
  /** @return which of the outcomes it was */
  Outcome outcome() const noexcept { return outcome_of(bool(values_), error_.get()); }
  /** @return true when there are values and no error */
  explicit operator bool() const noexcept { return outcome() == Outcome::Values; }
  /** @return the first record, which must be there */
  T &operator*() const noexcept { return *values_; }
  /** @return the first record, which must be there */
  T *operator->() const noexcept { return values_.get(); }
  /** @return what came */
  const Owner<T> &values() const &noexcept { return values_; }
  /** @return what came, to keep: `std::move(result).values()` */
  Owner<T> values() &&noexcept { return std::move(values_); }
  /** @return the error; null when there is none */
  const Error *error() const noexcept { return error_.get(); }
  /** @return the first node of what came */
  template <class R = T, std::enable_if_t<IsList<R>::value, int> = 0>
  NodeIterator<R> begin() const noexcept {
    return values_.begin();
  }
  /** @return the end of what came */
  template <class R = T, std::enable_if_t<IsList<R>::value, int> = 0>
  NodeIterator<R> end() const noexcept {
    return values_.end();
  }

 private:
  Owner<T> values_;
  Owner<Error> error_;
};

/**
 * What came of a change. There is nothing to hand out, so the outcome is never Outcome::Values.
 * True when the call succeeded and no error came: over CIM-XML that is so, too, when no answer
 * came. Who must know reads the instance back.
 */
class [[nodiscard]] Change {
 public:
  /** Takes over the error beside the number that the C call returned. */
  Change(std::intptr_t returned, Owner<Error> error) noexcept
      : is_done_(returned == 0), error_(std::move(error)) {}
  /** @return which of the outcomes it was */
  Outcome outcome() const noexcept { return outcome_of(false, error_.get()); }
  /** @return true when the call succeeded and no error came */
  explicit operator bool() const noexcept { return is_done_ && !error_; }
  /** @return the error; null when there is none */
  const Error *error() const noexcept { return error_.get(); }

 private:
  bool is_done_;
  Owner<Error> error_;
};

/**
 * What a method returned. -1 without parameters counts as Outcome::Nothing: a method may return
 * that, and no answer gives that, as does, over CIM-XML, a refused user or password.
 */
class [[nodiscard]] MethodResult {
 public:
  /** Takes over both beside the number that the C call returned. */
  MethodResult(std::int32_t returned, Owner<ParamValue> parameters, Owner<Error> error) noexcept
      : returned_(returned), parameters_(std::move(parameters)), error_(std::move(error)) {}
  /** @return which of the outcomes it was */
  Outcome outcome() const noexcept {
    return outcome_of(returned_ != -1 || parameters_, error_.get());
  }
  /** @return true when the method was run, whatever it returned */
  explicit operator bool() const noexcept { return outcome() == Outcome::Values; }
  /** @return the method's own return value */
  std::int32_t return_value() const noexcept { return returned_; }
  /** @return its output parameters */
  const Owner<ParamValue> &parameters() const noexcept { return parameters_; }
  /** @return the error; null when there is none */
  const Error *error() const noexcept { return error_.get(); }

 private:
  std::int32_t returned_;
  Owner<ParamValue> parameters_;
  Owner<Error> error_;
};

/* ---- CIM values and C++ types --------------------------------------------- */

/** A date-time or interval: its 25 characters, such as "20240131235959.000000+060". */
struct DateTime {
  std::string_view text; /**< the characters; borrowed */
};

/** @cond what the conversions are made of */
namespace detail {

constexpr char lower(char c) noexcept { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; }

constexpr bool same(std::string_view a, std::string_view b) noexcept {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (lower(a[i]) != lower(b[i])) return false;
  return true;
}

constexpr std::string_view view(const char *text) noexcept {
  return text ? std::string_view(text) : std::string_view();
}

constexpr std::string_view trimmed(std::string_view text) noexcept {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Takes a sign off the front; true for "-".
constexpr bool take_sign(std::string_view &text) noexcept {
  const bool is_minus = !text.empty() && text.front() == '-';
  if (is_minus || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
  return is_minus;
}

template <class T>
inline constexpr bool is_integer =
    std::is_integral_v<T> && !std::is_same_v<T, bool> && !std::is_same_v<T, char> &&
    !std::is_same_v<T, wchar_t> && !std::is_same_v<T, char16_t> && !std::is_same_v<T, char32_t>;

template <class T>
inline constexpr bool is_text =
    std::is_convertible_v<const T &, std::string_view> && !std::is_same_v<T, DateTime>;

// Decimal, or hexadecimal behind "0x".
template <class T>
std::optional<T> integer(std::string_view text) noexcept {
  text = trimmed(text);
  const bool is_negative = take_sign(text);
  int base = 10;
  if (text.size() > 2 && text[0] == '0' && lower(text[1]) == 'x') {
    base = 16;
    text.remove_prefix(2);
  }
  std::uint64_t size = 0;
  const char *end = text.data() + text.size();
  const auto [stopped, fault] = std::from_chars(text.data(), end, size, base);
  if (fault != std::errc() || stopped != end) return std::nullopt;
  constexpr auto most = std::uint64_t(std::numeric_limits<T>::max());
  if (!is_negative) return size <= most ? std::optional<T>(T(size)) : std::nullopt;
  if (size == 0) return T(0);
  if (!std::is_signed_v<T> || size > most + 1) return std::nullopt;
  return T(-std::int64_t(size - 1) - 1);
}

#if CIM_CLIENT_REALS_BY_PRINTF
inline void exchange_point(std::string &text, bool to_locale) {
  const char point = *std::localeconv()->decimal_point;
  for (char &c : text)
    if (c == (to_locale ? '.' : point)) c = to_locale ? point : '.';
}

template <class T>
std::optional<T> magnitude(std::string_view text) {
  if (text.size() > 2 && lower(text[1]) == 'x') return std::nullopt;
  std::string copied(text);
  exchange_point(copied, true);
  char *stopped = nullptr;
  T value;
  if constexpr (std::is_same_v<T, float>)
    value = std::strtof(copied.c_str(), &stopped);
  else
    value = std::strtod(copied.c_str(), &stopped);
  const bool is_infinite = value > std::numeric_limits<T>::max();
  if (stopped != copied.c_str() + copied.size()) return std::nullopt;
  if (is_infinite && lower(text[0]) != 'i') return std::nullopt;
  return value;
}

template <class T>
std::string real_text(T value) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*g", std::numeric_limits<T>::max_digits10, double(value));
  std::string text = buffer;
  exchange_point(text, false);
  return text;
}
#else
template <class T>
std::optional<T> magnitude(std::string_view text) noexcept {
  T value{};
  const char *end = text.data() + text.size();
  const auto [stopped, fault] = std::from_chars(text.data(), end, value);
  if (fault != std::errc() || stopped != end) return std::nullopt;
  return value;
}

template <class T>
std::string real_text(T value) {
  char buffer[64];
  return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}
#endif

template <class T>
std::optional<T> real(std::string_view text) {
  text = trimmed(text);
  const bool is_negative = take_sign(text);
  if (text.empty() || !(text[0] == '.' || (text[0] >= '0' && text[0] <= '9') || same(text, "inf") ||
                        same(text, "nan")))
    return std::nullopt;
  std::optional<T> value = magnitude<T>(text);
  if (value && is_negative) value = -*value;
  return value;
}

inline std::optional<bool> boolean(std::string_view text) noexcept {
  text = trimmed(text);
  if (same(text, "true")) return true;
  if (same(text, "false")) return false;
  return std::nullopt;
}

// The first character of UTF-8 text and how many bytes it has; 0 when it is none.
struct Character {
  char32_t code;
  std::size_t length;
};

constexpr Character first_character(std::string_view text) noexcept {
  if (text.empty()) return {0, 0};
  const auto lead = static_cast<unsigned char>(text[0]);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return {0, 0};
  char32_t code = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80) return {0, 0};
    code = (code << 6U) | (byte & 0x3FU);
  }
  const char32_t least = length == 4 ? 0x10000 : length == 3 ? 0x800 : 0x80;
  const bool is_surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (code < least || code > 0x10FFFF || is_surrogate) return {0, 0};
  return {code, length};
}

inline std::optional<char16_t> character(std::string_view text) noexcept {
  const Character first = first_character(text);
  if (first.length == 0 || first.length != text.size() || first.code > 0xFFFF) return std::nullopt;
  return char16_t(first.code);
}

inline std::string character_text(char16_t code) {
  std::string text;
  if (code < 0x80) return text += char(code);
  if (code < 0x800) {
    text += char(0xC0U | (code >> 6U));
  } else {
    text += char(0xE0U | (code >> 12U));
    text += char(0x80U | ((code >> 6U) & 0x3FU));
  }
  return text += char(0x80U | (code & 0x3FU));
}

// "yyyymmddhhmmss.mmmmmmsutc" or "ddddddddhhmmss.mmmmmm:000"; unknown digits are "*".
constexpr bool is_date_time(std::string_view text) noexcept {
  if (text.size() != 25 || text[14] != '.') return false;
  for (std::size_t i = 0; i < 25; ++i) {
    const bool is_digit = (text[i] >= '0' && text[i] <= '9') || text[i] == '*';
    if (!is_digit && i != 14 && i != 21) return false;
  }
  return text[21] == '+' || text[21] == '-' || (text[21] == ':' && text.substr(22) == "000");
}

template <class>
inline constexpr bool is_known = false;

}  // namespace detail
/** @endcond */

template <class T>
constexpr T *find(T *list, std::string_view name) noexcept {
  while (list && !(list->name && detail::same(list->name, name))) list = list->next;
  return list;
}

inline Status status(const Error *error) noexcept {
  if (!error) return Status::None;
  return static_cast<Status>(detail::integer<int>(detail::view(error->code)).value_or(-1));
}

/**
 * Reads a value from the text that stands for it.
 *
 *   bool                     "TRUE" and "FALSE", in any case
 *   integers of all widths   decimal, or hexadecimal behind "0x"; in range of the C++ type
 *   float, double            decimal, with or without exponent; INF and NAN. What is too large
 *                            is refused
 *   char16_t                 one character of UTF-8, up to U+FFFF
 *   DateTime                 25 characters of that form, borrowed from @p text
 *   std::string_view         the text itself, borrowed
 *   std::string              a copy
 *
 * Blanks around numbers and booleans do not matter.
 * @return nothing when the text is of another form or the value does not fit
 */
template <class T>
std::optional<T> from_text(std::string_view text) {
  if constexpr (std::is_same_v<T, bool>)
    return detail::boolean(text);
  else if constexpr (detail::is_integer<T>)
    return detail::integer<T>(text);
  else if constexpr (std::is_same_v<T, float> || std::is_same_v<T, double>)
    return detail::real<T>(text);
  else if constexpr (std::is_same_v<T, char16_t>)
    return detail::character(text);
  else if constexpr (std::is_same_v<T, DateTime>)
    return detail::is_date_time(text) ? std::optional(DateTime{text}) : std::nullopt;
  else if constexpr (std::is_same_v<T, std::string> || std::is_same_v<T, std::string_view>)
    return T(text);
  else
    static_assert(detail::is_known<T>, "no CIM type is read as this type");
}

/**
 * @return the text that stands for a value, as from_text() reads it. Reals have as many digits as
 *         tell them from all others. Texts are not escaped
 */
template <class T>
std::string to_text(const T &value) {
  if constexpr (std::is_same_v<T, bool>) {
    return value ? "TRUE" : "FALSE";
  } else if constexpr (detail::is_integer<T>) {
    char buffer[24];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
  } else if constexpr (std::is_same_v<T, float> || std::is_same_v<T, double>) {
    if (std::isnan(value)) return "NAN";
    if (value > std::numeric_limits<T>::max()) return "INF";
    if (value < std::numeric_limits<T>::lowest()) return "-INF";
    std::string text = detail::real_text(value);
    if (text.find('.') != std::string::npos) return text;
    return text.insert(text.find('e') == std::string::npos ? text.size() : text.find('e'), ".0");
  } else if constexpr (std::is_same_v<T, char16_t>) {
    return detail::character_text(value);
  } else if constexpr (std::is_same_v<T, DateTime>) {
    return std::string(value.text);
  } else {
    static_assert(detail::is_text<T>, "no CIM type is written from this type");
    return std::string(std::string_view(value));
  }
}

/** @return the name of the CIM type of values of a C++ type: "uint8", "boolean", "string" ... */
template <class T>
constexpr const char *cim_type() noexcept {
  if constexpr (std::is_same_v<T, bool>)
    return "boolean";
  else if constexpr (std::is_same_v<T, float>)
    return "real32";
  else if constexpr (std::is_same_v<T, double>)
    return "real64";
  else if constexpr (std::is_same_v<T, char16_t>)
    return "char16";
  else if constexpr (std::is_same_v<T, DateTime> || std::is_same_v<T, CIMDateTime> ||
                     std::is_same_v<T, CIMInterval>)
    return "datetime";
  else if constexpr (detail::is_integer<T>) {
    constexpr bool is_signed = std::is_signed_v<T>;
    if constexpr (sizeof(T) == 1)
      return is_signed ? "sint8" : "uint8";
    else if constexpr (sizeof(T) == 2)
      return is_signed ? "sint16" : "uint16";
    else if constexpr (sizeof(T) == 4)
      return is_signed ? "sint32" : "uint32";
    else
      return is_signed ? "sint64" : "uint64";
  } else {
    static_assert(detail::is_text<T>, "this type stands for no CIM type");
    return "string";
  }
}

/** @return the kind of key that values of a C++ type make: "boolean", "numeric" or "string" */
template <class T>
constexpr const char *key_type() noexcept {
  if constexpr (std::is_same_v<T, bool>)
    return "boolean";
  else if constexpr (std::is_arithmetic_v<T> && !std::is_same_v<T, char16_t>)
    return "numeric";
  else
    return "string";
}

/** @return the 25 characters of a date and time; its microseconds are 000000 */
inline std::string to_text(const CIMDateTime &date_time) {
  char text[128] = "";
  CIMC_ConvertDateTimeToString(&date_time, text);
  return text;
}

/** @return the 25 characters of a time span */
inline std::string to_text(const CIMInterval &interval) {
  char text[128] = "";
  CIMC_ConvertIntervalToString(&interval, text);
  return text;
}

/* ---- Reading values out of records ---------------------------------------- */

/** @return the text of a value; null for none */
inline const char *text_of(const Value *value) noexcept { return value ? value->text : nullptr; }
/** @return the text of a property's value; null for none */
inline const char *text_of(const Property *property) noexcept {
  return property ? text_of(property->value) : nullptr;
}
/** @return the text of a parameter's value; null for none */
inline const char *text_of(const ParamValue *parameter) noexcept {
  return parameter ? text_of(parameter->value) : nullptr;
}
/** @return the text of a qualifier's value; null for none */
inline const char *text_of(const Qualifier *qualifier) noexcept {
  return qualifier ? text_of(qualifier->value) : nullptr;
}
/** @return the text of a key's value; null for none */
inline const char *text_of(const KeyBinding *key) noexcept {
  return key && key->keyValue ? key->keyValue->text : nullptr;
}

/**
 * Reads the value of a Value, Property, ParamValue, Qualifier or KeyBinding, as from_text() does.
 * @return nothing when @p record is null, has no text, or the text does not fit
 */
template <class T, class R>
std::optional<T> get(const R *record) {
  const char *text = text_of(record);
  return text ? from_text<T>(text) : std::nullopt;
}

/** Reads a plain property: `get<std::uint32_t>(instance, "Speed")`. */
template <class T>
std::optional<T> get(const Instance &instance, std::string_view property) {
  return get<T>(find(instance.properties, property));
}

/** Reads a plain property of an instance that came with its name. */
template <class T>
std::optional<T> get(const NamedInstance &named, std::string_view property) {
  return named.instance ? get<T>(*named.instance, property) : std::nullopt;
}

/** Reads a plain property of an instance that came with its path. */
template <class T>
std::optional<T> get(const ObjectWithPath &object, std::string_view property) {
  return object.instance ? get<T>(*object.instance, property) : std::nullopt;
}

/** Reads a key of an instance name. */
template <class T>
std::optional<T> get(const InstanceName &name, std::string_view key) {
  return get<T>(find(name.keyBindings, key));
}

/** Reads an output parameter of a method. */
template <class T>
std::optional<T> get(const MethodResult &result, std::string_view parameter) {
  return get<T>(find(result.parameters().get(), parameter));
}

/** Reads an array. @return nothing for null, or when one of its values does not fit */
template <class T>
std::optional<std::vector<T>> get_array(const ValueArray *array) {
  if (!array) return std::nullopt;
  std::vector<T> values;
  for (const Value &element : nodes<const Value>(array->values)) {
    std::optional<T> value = get<T>(&element);
    if (!value) return std::nullopt;
    values.push_back(std::move(*value));
  }
  return values;
}

/** Reads an array property. @return nothing when it is absent, null, or a value does not fit */
template <class T>
std::optional<std::vector<T>> get_array(const Instance &instance, std::string_view property) {
  const PropertyArray *found = find(instance.propertyArrays, property);
  return get_array<T>(found ? found->valueArray : nullptr);
}

/** @return the instance that a reference names, with or without its path; null for none */
inline InstanceName *instance_name_of(const ValueReference *reference) noexcept {
  if (!reference) return nullptr;
  if (reference->instancePath) return reference->instancePath->instanceName;
  if (reference->localInstancePath) return reference->localInstancePath->instanceName;
  return reference->instanceName;
}

/** @return the instance that a reference property names; null for none */
inline InstanceName *get_reference(const Instance &instance, std::string_view property) noexcept {
  const PropertyReference *found = find(instance.propertyReferences, property);
  return instance_name_of(found ? found->valueReference : nullptr);
}

/** @return the name of a class; empty for none */
inline std::string_view class_of(const ClassName *name) noexcept {
  return name ? detail::view(name->name) : std::string_view();
}
/** @return the name of an instance's class; empty for none */
inline std::string_view class_of(const Instance &instance) noexcept {
  return class_of(instance.className);
}
/** @return the name of the class in an instance name; empty for none */
inline std::string_view class_of(const InstanceName &name) noexcept {
  return class_of(name.className);
}

/* ---- Escaping ------------------------------------------------------------- */

/**
 * @return a text as it may stand in a CIM-XML document: "<", ">", "&", double quotes, tabs and
 *         line ends as references. For what goes over CIM-XML only, and once: the local broker
 *         takes texts as they are
 */
inline std::string escape(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '&':
        result += "&amp;";
        break;
      case '"':
        result += "&quot;";
        break;
      case '\t':
        result += "&#9;";
        break;
      case '\n':
        result += "&#10;";
        break;
      case '\r':
        result += "&#13;";
        break;
      default:
        result += c;
    }
  }
  return result;
}

/** @return true for UTF-8 without the control characters that no XML document can carry, escaped
 *          or not */
inline bool fits_in_xml(std::string_view text) noexcept {
  while (!text.empty()) {
    const auto [code, length] = detail::first_character(text);
    if (length == 0 || code == 0xFFFE || code == 0xFFFF) return false;
    if (code < 0x20 && code != '\t' && code != '\n' && code != '\r') return false;
    text.remove_prefix(length);
  }
  return true;
}

/** Replaces a text of a record by its escaped form. @return false when memory runs out */
inline bool escape_in_place(char *&text) {
  if (!text || !std::strpbrk(text, "<>&\"\t\n\r")) return true;
  Text escaped = copy<char>(escape(text).c_str());
  if (!escaped) return false;
  Text old(std::exchange(text, escaped.release()));
  return true;
}

/** Escapes the plain and array properties of an instance that was read and is to be sent. */
inline bool escape_values(Instance &instance) {
  for (Property &property : nodes(instance.properties))
    if (property.value && !escape_in_place(property.value->text)) return false;
  for (PropertyArray &property : nodes(instance.propertyArrays))
    for (Value &value : nodes(property.valueArray ? property.valueArray->values : nullptr))
      if (!escape_in_place(value.text)) return false;
  return true;
}

/** Escapes the keys of an instance name that was read and is to be sent, also in references. */
inline bool escape_keys(InstanceName &name) {
  for (KeyBinding &key : nodes(name.keyBindings)) {
    if (key.keyValue && !escape_in_place(key.keyValue->text)) return false;
    InstanceName *referred = instance_name_of(key.valueReference);
    if (referred && !escape_keys(*referred)) return false;
  }
  return true;
}

/* ---- Building records ----------------------------------------------------- */

/** Appends a property of the CIM type of @p value. @return false when memory runs out */
template <class T>
bool add_property(Owner<Property> &list, const char *name, const T &value) {
  std::string text = to_text(value);
  return AddToProeprtyList(list.list(), name, text.data(), cim_type<std::decay_t<T>>()) == 0;
}

/** Appends a property that is null. @return false when memory runs out */
inline bool add_null_property(Owner<Property> &list, const char *name, const char *type) noexcept {
  return AddToProeprtyList(list.list(), name, nullptr, type) == 0;
}

/** Makes an array of a range of values. @return nothing when memory runs out */
template <class Range>
Owner<ValueArray> make_array(const Range &values) {
  Owner<ValueArray> array = make<ValueArray>();
  if (!array) return array;
  for (const auto &value : values)
    if (AddToValueList(&array->values, to_text(value).c_str()) != 0) return nullptr;
  return array;
}

/** Appends an array property of the CIM type of the values. @return false when memory runs out */
template <class Range>
bool add_array(Owner<PropertyArray> &list, const char *name, const Range &values) {
  using Element = std::decay_t<decltype(*std::begin(values))>;
  Owner<ValueArray> array = make_array(values);
  return array &&
         AddToPropertyArrayList(list.list(), name, array.release(), cim_type<Element>()) == 0;
}

/** Appends a key. @return false when memory runs out */
template <class T>
bool add_key(Owner<KeyBinding> &list, const char *name, const T &value) {
  return AddToKeyBindingListRef(list.list(), name, to_text(value).c_str(),
                                key_type<std::decay_t<T>>(), nullptr) == 0;
}

/** Makes an instance name of a class and keys. @return nothing when memory runs out */
inline Owner<InstanceName> make_instance_name(const char *class_name,
                                              Owner<KeyBinding> keys = {}) noexcept {
  Owner<InstanceName> name;
  Owner<ClassName> owned_class(CIMC_CreateClassName(class_name));
  if (!owned_class) return name;
  if (AddToInstanceNameList(name.list(), keys.release(), owned_class.release(), nullptr) != 0)
    name.reset();
  return name;
}

/** Makes an instance of a class and properties. @return nothing when memory runs out */
inline Owner<Instance> make_instance(const char *class_name, Owner<Property> properties,
                                     Owner<PropertyArray> arrays = {},
                                     Owner<PropertyReference> references = {}) noexcept {
  Owner<Instance> instance;
  Owner<ClassName> owned_class(CIMC_CreateClassName(class_name));
  if (!owned_class) return instance;
  if (AddToInstanceList(instance.list(), owned_class.release(), references.release(),
                        arrays.release(), properties.release()) != 0)
    instance.reset();
  return instance;
}

/** Puts an instance and its name together, for a change. @return nothing when memory runs out */
inline Owner<NamedInstance> make_named_instance(Owner<InstanceName> name,
                                                Owner<Instance> instance) noexcept {
  Owner<NamedInstance> named = make<NamedInstance>();
  if (!named || !name || !instance) return nullptr;
  named->instanceName = name.release();
  named->instance = instance.release();
  return named;
}

/** Appends an input parameter of the CIM type of @p value. @return false when memory runs out */
template <class T>
bool add_parameter(Owner<ParamValue> &list, const char *name, const T &value) {
  Owner<ParamValue> parameter = make<ParamValue>();
  if (!parameter) return false;
  Clone_CIMName(name, &parameter->name);
  Clone_ParamType(cim_type<std::decay_t<T>>(), &parameter->paramType);
  AddToValueList(&parameter->value, to_text(value).c_str());
  if (!parameter->name || !parameter->paramType || !text_of(parameter.get())) return false;
  append(list, std::move(parameter));
  return true;
}

/* ---- Documents ------------------------------------------------------------ */

/**
 * Reads a document, as parseXML() does, but never hands out the tree of an earlier one.
 * @tparam Lock  ReaderLock when other threads run operations or parse; held for the release, too
 * @return the tree; nothing when the text holds no CIM document
 */
template <class Lock = NoLock>
Owner<CIM, Lock> parse(const char *text) {
  [[maybe_unused]] const Lock lock;
  const CIM *earlier = returnAddress;
  CIM *tree = parseXML(text);
  return Owner<CIM, Lock>(tree == earlier ? nullptr : tree);
}

/**
 * Takes the instance out of an indication, as GetIndicationInstance() does.
 * @tparam Lock  ReaderLock when other threads run operations or parse
 * @return the instance; nothing when the text is no indication
 */
template <class Lock = NoLock>
Owner<Instance> indication(const char *text) {
  [[maybe_unused]] const Lock lock;
  Owner<Instance> instance;
  GetIndicationInstance(text, instance.out());
  return instance;
}

/* ---- The client ----------------------------------------------------------- */

/** A flag of an operation. */
enum class Flag : std::uint32_t {
  No = 0,    /**< FALSE */
  Yes = 1,   /**< TRUE */
  Unset = 2, /**< the object manager's own choice */
};

/** What comes with classes and instances. */
struct ReadOptions {
  Flag local_only = Flag::No;           /**< only what the class itself introduces */
  Flag deep_inheritance = Flag::Yes;    /**< subclasses, too; enumerations only */
  Flag include_qualifiers = Flag::No;   /**< qualifiers */
  Flag include_class_origin = Flag::No; /**< the class that introduced each property */
};

/** Which associations are followed. Null: any. */
struct AssociationOptions {
  const char *association_class = nullptr; /**< only through associations of this class; not for
                                                references */
  const char *result_class = nullptr;      /**< only results of this class */
  const char *role = nullptr;              /**< the role that the given object plays */
  const char *result_role = nullptr;       /**< the role of the results; not for references */
  Flag include_qualifiers = Flag::No;      /**< qualifiers */
  Flag include_class_origin = Flag::No;    /**< the class that introduced each property */
};

/**
 * A handle and its operations. Names that are handed in are sent alone, without the nodes after
 * them, and keep these.
 * @tparam Lock  held during each operation: NoLock, or ReaderLock when several threads run some
 */
template <class Lock = NoLock>
class BasicClient {
 public:
  /** Makes a handle, as client_Configuration() does; nothing is connected. False when it failed. */
  BasicClient(const char *host, std::uint32_t port, const char *name_space, const char *user,
              const char *password) noexcept
      : handle_(client_Configuration(host, port, name_space, 0, user, password)) {}
  /** Takes over a handle. */
  explicit BasicClient(Handle handle) noexcept : handle_(std::move(handle)) {}

  /** @return true when there is a handle */
  explicit operator bool() const noexcept { return bool(handle_); }
  /** @return the handle */
  struct client_Configuration *handle() const noexcept {
    return handle_.get();
  }
  /** @return true when the local broker serves it */
  bool is_local() const noexcept { return handle_ && handle_->interface == 1; }
  /** Changes the namespace. @return false when memory runs out */
  bool set_namespace(const char *name_space) noexcept {
    return CIMC_SetNamespace(handle(), name_space) == 0;
  }
  /** @return a text as it is to be handed in: escaped for CIM-XML, as it is for the local broker */
  std::string outgoing(std::string_view text) const {
    return is_local() ? std::string(text) : escape(text);
  }

  /** CIM_GetClass(). */
  Result<Class> get_class(const char *class_name, const ReadOptions &options = {}) const {
    return ask<Class>([&](Error **error) {
      ClassName name = borrowed(class_name);
      return CIM_GetClass(handle(), &name, number(options.local_only),
                          number(options.include_qualifiers), number(options.include_class_origin),
                          nullptr, error);
    });
  }

  /** CIM_EnumerateClasses(); null: from the root classes on. */
  Result<Class> enumerate_classes(const char *class_name = nullptr,
                                  const ReadOptions &options = {}) const {
    return ask<Class>([&](Error **error) {
      ClassName name = borrowed(class_name);
      return CIM_EnumerateClasses(handle(), class_name ? &name : nullptr,
                                  number(options.deep_inheritance), number(options.local_only),
                                  number(options.include_qualifiers),
                                  number(options.include_class_origin), error);
    });
  }

  /** EnumerateClassNames(); null: from the root classes on. */
  Result<ClassName> enumerate_class_names(const char *class_name = nullptr,
                                          Flag deep_inheritance = Flag::Yes) const {
    return ask<ClassName>([&](Error **error) {
      ClassName name = borrowed(class_name);
      return EnumerateClassNames(handle(), class_name ? &name : nullptr, number(deep_inheritance),
                                 error);
    });
  }

  /** EnumerateInstances(). */
  Result<NamedInstance> enumerate_instances(const char *class_name,
                                            const ReadOptions &options = {}) const {
    return ask<NamedInstance>([&](Error **error) {
      ClassName name = borrowed(class_name);
      return EnumerateInstances(
          handle(), &name, number(options.local_only), number(options.deep_inheritance),
          number(options.include_qualifiers), number(options.include_class_origin), nullptr, error);
    });
  }

  /** EnumerateInstanceNames(). */
  Result<InstanceName> enumerate_instance_names(const char *class_name) const {
    return ask<InstanceName>([&](Error **error) {
      ClassName name = borrowed(class_name);
      return EnumerateInstanceNames(handle(), &name, error);
    });
  }

  /** GetInstance(). */
  Result<Instance> get_instance(InstanceName &name, const ReadOptions &options = {}) const {
    const Alone<InstanceName> alone(name);
    return ask<Instance>([&](Error **error) {
      return GetInstance(handle(), &name, number(options.local_only),
                         number(options.include_qualifiers), number(options.include_class_origin),
                         nullptr, error);
    });
  }

  /** Associators() of an instance. */
  Result<ObjectWithPath> associators(InstanceName &name,
                                     const AssociationOptions &options = {}) const {
    const Alone<InstanceName> alone(name);
    return associators(ObjectName{nullptr, &name}, options);
  }
  /** Associators() of a class. */
  Result<ObjectWithPath> associators(const char *class_name,
                                     const AssociationOptions &options = {}) const {
    ClassName name = borrowed(class_name);
    return associators(ObjectName{&name, nullptr}, options);
  }

  /** AssociatorNames() of an instance. */
  Result<ObjectPath> associator_names(InstanceName &name,
                                      const AssociationOptions &options = {}) const {
    const Alone<InstanceName> alone(name);
    return ask<ObjectPath>([&](Error **error) {
      ObjectName object{nullptr, &name};
      ClassName association = borrowed(options.association_class);
      ClassName result = borrowed(options.result_class);
      return AssociatorNames(handle(), &object, association.name ? &association : nullptr,
                             result.name ? &result : nullptr, options.role, options.result_role,
                             error);
    });
  }

  /** References() of an instance. */
  Result<ObjectWithPath> references(InstanceName &name,
                                    const AssociationOptions &options = {}) const {
    const Alone<InstanceName> alone(name);
    return ask<ObjectWithPath>([&](Error **error) {
      ObjectName object{nullptr, &name};
      ClassName result = borrowed(options.result_class);
      return References(handle(), &object, result.name ? &result : nullptr, options.role,
                        number(options.include_qualifiers), number(options.include_class_origin),
                        nullptr, error);
    });
  }

  /** ReferenceNames() of an instance. Over CIM-XML the names are one list in the first path. */
  Result<ObjectPath> reference_names(InstanceName &name,
                                     const AssociationOptions &options = {}) const {
    const Alone<InstanceName> alone(name);
    return ask<ObjectPath>([&](Error **error) {
      ObjectName object{nullptr, &name};
      ClassName result = borrowed(options.result_class);
      return ReferenceNames(handle(), &object, result.name ? &result : nullptr, options.role,
                            error);
    });
  }

  /** CIM_CreateInstance(). */
  Result<InstanceName> create_instance(Instance &instance) const {
    const Alone<Instance> alone(instance);
    return ask<InstanceName>(
        [&](Error **error) { return CIM_CreateInstance(handle(), &instance, error); });
  }

  /** ModifyInstance(). */
  Change modify_instance(NamedInstance &instance, Flag include_qualifiers = Flag::No) const {
    const Alone<NamedInstance> alone(instance);
    [[maybe_unused]] const Lock lock;
    Owner<Error> error;
    const std::intptr_t returned =
        ModifyInstance(handle(), &instance, number(include_qualifiers), nullptr, error.out());
    return {handle_ ? returned : -1, std::move(error)};
  }

  /** DeleteInstance(). */
  Change delete_instance(InstanceName &name) const {
    const Alone<InstanceName> alone(name);
    [[maybe_unused]] const Lock lock;
    Owner<Error> error;
    const std::intptr_t returned = DeleteInstance(handle(), &name, error.out());
    return {handle_ ? returned : -1, std::move(error)};
  }

  /** invokeMethod(). @p parameters may be null. */
  MethodResult invoke(InstanceName &name, const char *method,
                      ParamValue *parameters = nullptr) const {
    const Alone<InstanceName> alone(name);
    [[maybe_unused]] const Lock lock;
    Owner<ParamValue> outputs;
    Owner<Error> error;
    const int returned =
        invokeMethod(handle(), &name, method, parameters, outputs.out(), error.out());
    return {returned, std::move(outputs), std::move(error)};
  }

  /** ExecQuery(). */
  Result<ObjectWithPath> query(const char *language, const char *text) const {
    return ask<ObjectWithPath>(
        [&](Error **error) { return ExecQuery(handle(), language, text, error); });
  }

 private:
  static constexpr std::uint32_t number(Flag flag) noexcept {
    return static_cast<std::uint32_t>(flag);
  }

  // A record for the time of a call; the library reads it and keeps nothing of it.
  static ClassName borrowed(const char *name) noexcept {
    return ClassName{const_cast<char *>(name), nullptr};
  }

  template <class T, class Call>
  Result<T> ask(Call call) const {
    [[maybe_unused]] const Lock lock;
    Owner<Error> error;
    Owner<T> values(call(error.out()));
    return {std::move(values), std::move(error)};
  }

  Result<ObjectWithPath> associators(ObjectName object, const AssociationOptions &options) const {
    return ask<ObjectWithPath>([&](Error **error) {
      ClassName association = borrowed(options.association_class);
      ClassName result = borrowed(options.result_class);
      return Associators(handle(), &object, association.name ? &association : nullptr,
                         result.name ? &result : nullptr, options.role, options.result_role,
                         number(options.include_qualifiers), number(options.include_class_origin),
                         nullptr, error);
    });
  }

  Handle handle_;
};

/** For programs in which one thread alone runs operations. */
using Client = BasicClient<NoLock>;
/** For several threads, which may also share one: its operations wait for each other. */
using SharedClient = BasicClient<ReaderLock>;

static_assert(sizeof(Client) == sizeof(struct client_Configuration *));
static_assert(sizeof(SharedClient) == sizeof(struct client_Configuration *));

}  // namespace cim_client

#undef CIM_CLIENT_REALS_BY_PRINTF

#endif /* CIM_CLIENT_HPP */
