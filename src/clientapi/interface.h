// The broker's client interface (CIMC), as its library lays it out.
//
// Tables, slots and record sizes are those of sblim-sfcc.  A table is an array of function
// pointers in the published order; an object is a pair of an opaque handle and its table, and
// each function takes the object first.  Texts that go in stay the caller's.
#pragma once

#include <cstddef>
#include <cstdint>

namespace cim::broker {

// ---- Data ----

using CIMCType = std::uint16_t;        // see code
using CIMCValueState = std::uint16_t;  // state_good, or a reason why there is no value
using CIMCCount = unsigned;
using CIMCFlags = unsigned;
using CIMCBoolean = unsigned char;

constexpr CIMCValueState state_good = 0;

constexpr CIMCFlags deep_inheritance = 2;

// Type codes.
namespace code {
constexpr CIMCType boolean = 2;
constexpr CIMCType char16 = 3;
constexpr CIMCType real32 = 8;
constexpr CIMCType real64 = 12;
constexpr CIMCType uint8 = 128;
constexpr CIMCType uint16 = 144;
constexpr CIMCType uint32 = 160;
constexpr CIMCType uint64 = 176;
constexpr CIMCType sint8 = 192;
constexpr CIMCType sint16 = 208;
constexpr CIMCType sint32 = 224;
constexpr CIMCType sint64 = 240;
constexpr CIMCType encapsulated = 4096;  // flag of every code whose value is an object
constexpr CIMCType instance = 4096;
constexpr CIMCType reference = 4352;
constexpr CIMCType string = 5632;
constexpr CIMCType chars =
    5888;  // handed in: the character pointer itself, in place of a CIMCValue
constexpr CIMCType datetime = 6144;
constexpr CIMCType array = 8192;  // flag of every array code
}  // namespace code

struct CIMCEnv;
struct CIMCClient;
struct CIMCObjectPath;
struct CIMCInstance;
struct CIMCClass;
struct CIMCArgs;
struct CIMCArray;
struct CIMCString;
struct CIMCDateTime;
struct CIMCEnumeration;
struct CIMCIndicationListener;

struct CIMCStatus {
  int rc;           // CIM status code; 0: success
  CIMCString* msg;  // may be null, and may be empty
};

// The largest member comes first: {} clears the first one, and with it all of them.
union CIMCValue {
  struct {
    void* ptr;
    unsigned length;
  } dataPtr;
  std::uint8_t uint8;
  std::uint16_t uint16;
  std::uint32_t uint32;
  std::uint64_t uint64;
  std::int8_t sint8;
  std::int16_t sint16;
  std::int32_t sint32;
  std::int64_t sint64;
  float real32;
  double real64;
  CIMCBoolean boolean;
  std::uint16_t char16;
  CIMCInstance* inst;
  CIMCObjectPath* ref;
  CIMCArray* array;
  CIMCString* string;
  char* chars;
  CIMCDateTime* dateTime;
};

struct CIMCData {
  CIMCType type;
  CIMCValueState state;
  CIMCValue value;
};

// ---- Function tables ----

struct CIMCEnvFT {
  const char* env;  // name of the back end
  void* (*release)(CIMCEnv*);
  CIMCClient* (*connect)(CIMCEnv*, const char* host, const char* scheme, const char* port,
                         const char* user, const char* password, CIMCStatus*);
  CIMCClient* (*connect2)(CIMCEnv*, const char* host, const char* scheme, const char* port,
                          const char* user, const char* password, int verify_mode,
                          const char* trust_store, const char* cert_file, const char* key_file,
                          CIMCStatus*);
  CIMCInstance* (*newInstance)(CIMCEnv*, const CIMCObjectPath*, CIMCStatus*);
  CIMCObjectPath* (*newObjectPath)(CIMCEnv*, const char* name_space, const char* class_name,
                                   CIMCStatus*);
  CIMCArgs* (*newArgs)(CIMCEnv*, CIMCStatus*);
  CIMCString* (*newString)(CIMCEnv*, const char* text, CIMCStatus*);
  CIMCArray* (*newArray)(CIMCEnv*, CIMCCount size, CIMCType element, CIMCStatus*);
  CIMCDateTime* (*newDateTime)(CIMCEnv*, CIMCStatus*);
  CIMCDateTime* (*newDateTimeFromBinary)(CIMCEnv*, std::uint64_t time, CIMCBoolean interval,
                                         CIMCStatus*);
  CIMCDateTime* (*newDateTimeFromChars)(CIMCEnv*, const char* text, CIMCStatus*);
  // The tables of brokers in the field end here: the slots below are not to be touched.
  CIMCIndicationListener* (*newIndicationListener)(CIMCEnv*, int ssl_mode, int* port,
                                                   char** socket_name,
                                                   void (*callback)(CIMCInstance*), CIMCStatus*);
  void* (*markHeap)();
  void (*releaseHeap)(void*);
};

struct CIMCClientFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCClient*);
  CIMCClient* (*clone)(CIMCClient*, CIMCStatus*);
  CIMCClass* (*getClass)(CIMCClient*, CIMCObjectPath*, CIMCFlags, char** properties, CIMCStatus*);
  CIMCEnumeration* (*enumClassNames)(CIMCClient*, CIMCObjectPath*, CIMCFlags, CIMCStatus*);
  CIMCEnumeration* (*enumClasses)(CIMCClient*, CIMCObjectPath*, CIMCFlags, CIMCStatus*);
  CIMCInstance* (*getInstance)(CIMCClient*, CIMCObjectPath*, CIMCFlags, char** properties,
                               CIMCStatus*);
  CIMCObjectPath* (*createInstance)(CIMCClient*, CIMCObjectPath*, CIMCInstance*, CIMCStatus*);
  CIMCStatus (*setInstance)(CIMCClient*, CIMCObjectPath*, CIMCInstance*, CIMCFlags,
                            char** properties);
  CIMCStatus (*deleteInstance)(CIMCClient*, CIMCObjectPath*);
  CIMCEnumeration* (*execQuery)(CIMCClient*, CIMCObjectPath*, const char* query,
                                const char* language, CIMCStatus*);
  CIMCEnumeration* (*enumInstanceNames)(CIMCClient*, CIMCObjectPath*, CIMCStatus*);
  CIMCEnumeration* (*enumInstances)(CIMCClient*, CIMCObjectPath*, CIMCFlags, char** properties,
                                    CIMCStatus*);
  CIMCEnumeration* (*associators)(CIMCClient*, CIMCObjectPath*, const char* assoc_class,
                                  const char* result_class, const char* role,
                                  const char* result_role, CIMCFlags, char** properties,
                                  CIMCStatus*);
  CIMCEnumeration* (*associatorNames)(CIMCClient*, CIMCObjectPath*, const char* assoc_class,
                                      const char* result_class, const char* role,
                                      const char* result_role, CIMCStatus*);
  CIMCEnumeration* (*references)(CIMCClient*, CIMCObjectPath*, const char* result_class,
                                 const char* role, CIMCFlags, char** properties, CIMCStatus*);
  CIMCEnumeration* (*referenceNames)(CIMCClient*, CIMCObjectPath*, const char* result_class,
                                     const char* role, CIMCStatus*);
  CIMCData (*invokeMethod)(CIMCClient*, CIMCObjectPath*, const char* method, CIMCArgs* in,
                           CIMCArgs* out, CIMCStatus*);
  CIMCStatus (*setProperty)(CIMCClient*, CIMCObjectPath*, const char* name, CIMCValue*, CIMCType);
  CIMCData (*getProperty)(CIMCClient*, CIMCObjectPath*, const char* name, CIMCStatus*);
};

struct CIMCObjectPathFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCObjectPath*);
  CIMCObjectPath* (*clone)(CIMCObjectPath*, CIMCStatus*);
  CIMCStatus (*setNameSpace)(CIMCObjectPath*, const char*);
  CIMCString* (*getNameSpace)(CIMCObjectPath*, CIMCStatus*);
  CIMCStatus (*setHostname)(CIMCObjectPath*, const char*);
  CIMCString* (*getHostname)(CIMCObjectPath*, CIMCStatus*);
  CIMCStatus (*setClassName)(CIMCObjectPath*, const char*);
  CIMCString* (*getClassName)(CIMCObjectPath*, CIMCStatus*);
  CIMCStatus (*addKey)(CIMCObjectPath*, const char* name, CIMCValue*, CIMCType);
  CIMCData (*getKey)(CIMCObjectPath*, const char* name, CIMCStatus*);
  CIMCData (*getKeyAt)(CIMCObjectPath*, unsigned index, CIMCString** name, CIMCStatus*);
  unsigned (*getKeyCount)(CIMCObjectPath*, CIMCStatus*);
  CIMCStatus (*setNameSpaceFromObjectPath)(CIMCObjectPath*, CIMCObjectPath*);
  CIMCStatus (*setHostAndNameSpaceFromObjectPath)(CIMCObjectPath*, CIMCObjectPath*);
  // The four qualifier slots may be null.
  CIMCData (*getClassQualifier)(CIMCObjectPath*, const char* qualifier, CIMCStatus*);
  CIMCData (*getPropertyQualifier)(CIMCObjectPath*, const char* property, const char* qualifier,
                                   CIMCStatus*);
  CIMCData (*getMethodQualifier)(CIMCObjectPath*, const char* method, const char* qualifier,
                                 CIMCStatus*);
  CIMCData (*getParameterQualifier)(CIMCObjectPath*, const char* method, const char* parameter,
                                    const char* qualifier, CIMCStatus*);
  CIMCString* (*toString)(CIMCObjectPath*, CIMCStatus*);
};

struct CIMCInstanceFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCInstance*);
  CIMCInstance* (*clone)(CIMCInstance*, CIMCStatus*);
  CIMCData (*getProperty)(CIMCInstance*, const char* name, CIMCStatus*);
  CIMCData (*getPropertyAt)(CIMCInstance*, unsigned index, CIMCString** name, CIMCStatus*);
  unsigned (*getPropertyCount)(CIMCInstance*, CIMCStatus*);
  CIMCStatus (*setProperty)(CIMCInstance*, const char* name, CIMCValue*, CIMCType);
  CIMCObjectPath* (*getObjectPath)(CIMCInstance*, CIMCStatus*);
  CIMCStatus (*setPropertyFilter)(CIMCInstance*, char** properties, char** keys);
  CIMCData (*getQualifier)(CIMCInstance*, const char* name, CIMCStatus*);
  CIMCData (*getQualifierAt)(CIMCInstance*, unsigned index, CIMCString** name, CIMCStatus*);
  unsigned (*getQualifierCount)(CIMCInstance*, CIMCStatus*);
  CIMCData (*getPropertyQualifier)(CIMCInstance*, const char* property, const char* qualifier,
                                   CIMCStatus*);
  CIMCData (*getPropertyQualifierAt)(CIMCInstance*, const char* property, unsigned index,
                                     CIMCString** name, CIMCStatus*);
  unsigned (*getPropertyQualifierCount)(CIMCInstance*, const char* property, CIMCStatus*);
};

struct CIMCClassFT {
  int version;
  CIMCStatus (*release)(CIMCClass*);
  CIMCClass* (*clone)(CIMCClass*, CIMCStatus*);
  CIMCString* (*getClassName)(CIMCClass*, CIMCStatus*);
  CIMCData (*getProperty)(CIMCClass*, const char* name, CIMCStatus*);
  CIMCData (*getPropertyAt)(CIMCClass*, CIMCCount index, CIMCString** name, CIMCStatus*);
  CIMCCount (*getPropertyCount)(CIMCClass*, CIMCStatus*);
  CIMCData (*getQualifier)(CIMCClass*, const char* name, CIMCStatus*);
  CIMCData (*getQualifierAt)(CIMCClass*, CIMCCount index, CIMCString** name, CIMCStatus*);
  CIMCCount (*getQualifierCount)(CIMCClass*, CIMCStatus*);
  CIMCData (*getPropQualifier)(CIMCClass*, const char* property, const char* qualifier,
                               CIMCStatus*);
  CIMCData (*getPropQualifierAt)(CIMCClass*, const char* property, CIMCCount index,
                                 CIMCString** name, CIMCStatus*);
  CIMCCount (*getPropQualifierCount)(CIMCClass*, const char* property, CIMCStatus*);
  CIMCString* (*getSuperClassName)(CIMCClass*, CIMCStatus*);
  CIMCArray* (*getKeyList)(CIMCClass*);
  char* (*toString)(CIMCClass*);
  void (*relocate)(CIMCClass*);
  const char* (*getCharClassName)(CIMCClass*);
  const char* (*getCharSuperClassName)(CIMCClass*);
  CIMCBoolean (*isAssociation)(CIMCClass*);
  CIMCBoolean (*isAbstract)(CIMCClass*);
  CIMCBoolean (*isIndication)(CIMCClass*);
  CIMCData (*getPropQualAt)(CIMCClass*, CIMCCount property, CIMCCount index, CIMCString** name,
                            CIMCStatus*);  // may be null
};

struct CIMCArgsFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCArgs*);
  CIMCArgs* (*clone)(CIMCArgs*, CIMCStatus*);
  CIMCStatus (*addArg)(CIMCArgs*, const char* name, CIMCValue*, CIMCType);
  CIMCData (*getArg)(CIMCArgs*, const char* name, CIMCStatus*);
  CIMCData (*getArgAt)(CIMCArgs*, unsigned index, CIMCString** name, CIMCStatus*);
  unsigned (*getArgCount)(CIMCArgs*, CIMCStatus*);
};

struct CIMCArrayFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCArray*);
  CIMCArray* (*clone)(CIMCArray*, CIMCStatus*);
  CIMCCount (*getSize)(CIMCArray*, CIMCStatus*);
  CIMCType (*getSimpleType)(CIMCArray*, CIMCStatus*);
  CIMCData (*getElementAt)(CIMCArray*, CIMCCount index, CIMCStatus*);
  CIMCStatus (*setElementAt)(CIMCArray*, CIMCCount index, CIMCValue*, CIMCType);
};

struct CIMCStringFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCString*);
  CIMCString* (*clone)(CIMCString*, CIMCStatus*);
  char* (*getCharPtr)(CIMCString*, CIMCStatus*);
};

struct CIMCDateTimeFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCDateTime*);
  CIMCDateTime* (*clone)(CIMCDateTime*, CIMCStatus*);
  std::uint64_t (*getBinaryFormat)(CIMCDateTime*, CIMCStatus*);
  CIMCString* (*getStringFormat)(CIMCDateTime*, CIMCStatus*);
  CIMCBoolean (*isInterval)(CIMCDateTime*, CIMCStatus*);
};

struct CIMCEnumerationFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCEnumeration*);
  CIMCEnumeration* (*clone)(CIMCEnumeration*, CIMCStatus*);
  CIMCData (*getNext)(CIMCEnumeration*, CIMCStatus*);
  CIMCBoolean (*hasNext)(CIMCEnumeration*, CIMCStatus*);
  CIMCArray* (*toArray)(CIMCEnumeration*, CIMCStatus*);
};

struct CIMCIndicationListenerFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCIndicationListener*);
  CIMCIndicationListener* (*clone)(CIMCIndicationListener*, CIMCStatus*);
  CIMCStatus (*start)(CIMCIndicationListener*);
  CIMCStatus (*stop)(CIMCIndicationListener*);
};

// ---- Objects ----

struct CIMCEnv {
  void* hdl;  // the loader keeps the library's handle here
  const CIMCEnvFT* ft;
  unsigned options;
};
struct CIMCClient {
  void* hdl;
  const CIMCClientFT* ft;
};
struct CIMCObjectPath {
  void* hdl;
  const CIMCObjectPathFT* ft;
};
struct CIMCInstance {
  void* hdl;
  const CIMCInstanceFT* ft;
};
struct CIMCClass {
  void* hdl;
  const CIMCClassFT* ft;
};
struct CIMCArgs {
  void* hdl;
  const CIMCArgsFT* ft;
};
struct CIMCArray {
  void* hdl;
  const CIMCArrayFT* ft;
};
struct CIMCString {
  void* hdl;  // the characters
  const CIMCStringFT* ft;
};
struct CIMCDateTime {
  void* hdl;
  const CIMCDateTimeFT* ft;
};
struct CIMCEnumeration {
  void* hdl;
  const CIMCEnumerationFT* ft;
};
struct CIMCIndicationListener {
  void* hdl;
  const CIMCIndicationListenerFT* ft;
};

// The factory that the library exports: _Create_SfcbLocal_Env.
using Factory = CIMCEnv* (*)(const char* id, unsigned options, int* rc, char** msg);

// ---- The layout, held fast ----

// Picks the figure of this machine's pointer width.
constexpr std::size_t on(std::size_t bits64, std::size_t bits32) {
  return sizeof(void*) == 8 ? bits64 : bits32;
}

static_assert(sizeof(CIMCValue) == on(16, 8));
// The value holds 64-bit numbers: on i386 it begins at a multiple of 4, elsewhere of 8.
#ifdef __i386__
static_assert(alignof(CIMCValue) == 4);
#else
static_assert(alignof(CIMCValue) == 8);
#endif
static_assert(sizeof(CIMCData) == alignof(CIMCValue) + sizeof(CIMCValue));
static_assert(offsetof(CIMCData, state) == 2);
static_assert(offsetof(CIMCData, value) == alignof(CIMCValue));
static_assert(sizeof(CIMCStatus) == on(16, 8));
static_assert(offsetof(CIMCStatus, msg) == on(8, 4));
static_assert(sizeof(CIMCEnv) == on(24, 12));
static_assert(offsetof(CIMCEnv, ft) == sizeof(void*));
static_assert(offsetof(CIMCEnv, options) == 2 * sizeof(void*));
static_assert(sizeof(CIMCClient) == on(16, 8));

// Slots per table, version word included.
static_assert(sizeof(CIMCEnvFT) == 15 * sizeof(void*));
static_assert(sizeof(CIMCClientFT) == 20 * sizeof(void*));
static_assert(sizeof(CIMCObjectPathFT) == 20 * sizeof(void*));
static_assert(sizeof(CIMCInstanceFT) == 15 * sizeof(void*));
static_assert(sizeof(CIMCClassFT) == 23 * sizeof(void*));
static_assert(sizeof(CIMCArgsFT) == 7 * sizeof(void*));
static_assert(sizeof(CIMCArrayFT) == 7 * sizeof(void*));
static_assert(sizeof(CIMCStringFT) == 4 * sizeof(void*));
static_assert(sizeof(CIMCDateTimeFT) == 6 * sizeof(void*));
static_assert(sizeof(CIMCEnumerationFT) == 6 * sizeof(void*));
static_assert(sizeof(CIMCIndicationListenerFT) == 5 * sizeof(void*));

}  // namespace cim::broker
