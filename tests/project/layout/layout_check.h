/* Holds sizes, offsets and types of every record against the tables of this folder, in C
 * and in C++, on machines with 64-bit and with 32-bit pointers.
 *
 * The tables give first the number for 64-bit, then the one for 32-bit:
 *   RECORD(record, size, size)
 *   FIELD(record, type, name, offset, offset)
 * They follow from the order of the fields and the rule of the machine's C ABI that every
 * number and pointer lies at a multiple of its own size.
 */
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "cim_client.h"

typedef struct client_Configuration Handle; /* the name stands for a function too */

#if UINTPTR_MAX == UINT64_MAX
#define ON_THIS_MACHINE(on_64_bit, on_32_bit) (on_64_bit)
#else
#define ON_THIS_MACHINE(on_64_bit, on_32_bit) (on_32_bit)
#endif

#ifdef __cplusplus
#include <type_traits>
#define CLASS_FIELD class_
#define NAMESPACE_FIELD namespace_
#define HAS_TYPE(record, type, name) std::is_same<decltype(record::name), type>::value
#else
#define static_assert _Static_assert
#define CLASS_FIELD class
#define NAMESPACE_FIELD namespace
#define HAS_TYPE(record, type, name) \
  __builtin_types_compatible_p(__typeof__(((record*)0)->name), type)
#endif

#define RECORD(record, size_64, size_32) \
  static_assert(sizeof(record) == ON_THIS_MACHINE(size_64, size_32), #record " has another size");
#define FIELD(record, type, name, offset_64, offset_32)                          \
  static_assert(offsetof(record, name) == ON_THIS_MACHINE(offset_64, offset_32), \
                #record "." #name " lies elsewhere");                            \
  static_assert(HAS_TYPE(record, type, name), #record "." #name " is no " #type);

#include "client.inc"
#include "declarations.inc"
#include "messages.inc"
#include "schema.inc"
#include "values.inc"
