/* The broker's client interface (CIMC), as sblim-sfcc lays it out: what the local sandbox offers.
 *
 * It is declared here once more, apart from the client library's own declaration: a test holds
 * the two against each other, and both against an installed cimc/cimc.h where there is one. */
/* clang-format off: C pointers, in a folder of C++ */
#ifndef CIM_SANDBOX_LOCAL_CIMC_H
#define CIM_SANDBOX_LOCAL_CIMC_H

#include <stdint.h>

#ifdef __cplusplus
namespace sandbox_local {
extern "C" {
#endif

// NOLINTBEGIN: C, with the names that have been published.
typedef unsigned short CIMCType;
typedef unsigned short CIMCValueState;
typedef unsigned int CIMCCount;
typedef unsigned int CIMCFlags;
typedef unsigned char CIMCBoolean;

typedef struct _CIMCEnv CIMCEnv;
typedef struct _CIMCEnvFT CIMCEnvFT;
typedef struct _CIMCClient CIMCClient;
typedef struct _CIMCClientFT CIMCClientFT;
typedef struct _CIMCObjectPath CIMCObjectPath;
typedef struct _CIMCObjectPathFT CIMCObjectPathFT;
typedef struct _CIMCInstance CIMCInstance;
typedef struct _CIMCInstanceFT CIMCInstanceFT;
typedef struct _CIMCClass CIMCClass;
typedef struct _CIMCClassFT CIMCClassFT;
typedef struct _CIMCArgs CIMCArgs;
typedef struct _CIMCArgsFT CIMCArgsFT;
typedef struct _CIMCArray CIMCArray;
typedef struct _CIMCArrayFT CIMCArrayFT;
typedef struct _CIMCString CIMCString;
typedef struct _CIMCStringFT CIMCStringFT;
typedef struct _CIMCDateTime CIMCDateTime;
typedef struct _CIMCDateTimeFT CIMCDateTimeFT;
typedef struct _CIMCEnumeration CIMCEnumeration;
typedef struct _CIMCEnumerationFT CIMCEnumerationFT;
typedef struct _CIMCIndicationListener CIMCIndicationListener;
typedef struct _CIMCIndicationListenerFT CIMCIndicationListenerFT;

typedef struct _CIMCStatus {
  int rc;
  CIMCString* msg;
} CIMCStatus;

// The largest member comes first: {} clears the first one, and with it all of them.
typedef union _CIMCValue {
  struct {
    void* ptr;
    unsigned int length;
  } dataPtr;
  uint8_t uint8;
  uint16_t uint16;
  uint32_t uint32;
  uint64_t uint64;
  int8_t sint8;
  int16_t sint16;
  int32_t sint32;
  int64_t sint64;
  float real32;
  double real64;
  CIMCBoolean boolean;
  uint16_t char16;
  CIMCClass* cls;
  CIMCInstance* inst;
  CIMCObjectPath* ref;
  CIMCArgs* args;
  CIMCEnumeration* Enum;
  CIMCArray* array;
  CIMCString* string;
  char* chars;
  CIMCDateTime* dateTime;
} CIMCValue;

typedef struct _CIMCData {
  CIMCType type;
  CIMCValueState state;
  CIMCValue value;
} CIMCData;

struct _CIMCEnvFT {
  const char* env;
  void* (*release)(CIMCEnv*);
  CIMCClient* (*connect)(CIMCEnv*, const char* host, const char* scheme, const char* port,
                         const char* user, const char* password, CIMCStatus*);
  CIMCClient* (*connect2)(CIMCEnv*, const char* host, const char* scheme, const char* port,
                          const char* user, const char* password, int verifyMode,
                          const char* trustStore, const char* certFile, const char* keyFile,
                          CIMCStatus*);
  CIMCInstance* (*newInstance)(CIMCEnv*, const CIMCObjectPath*, CIMCStatus*);
  CIMCObjectPath* (*newObjectPath)(CIMCEnv*, const char* nameSpace, const char* className,
                                   CIMCStatus*);
  CIMCArgs* (*newArgs)(CIMCEnv*, CIMCStatus*);
  CIMCString* (*newString)(CIMCEnv*, const char*, CIMCStatus*);
  CIMCArray* (*newArray)(CIMCEnv*, CIMCCount size, CIMCType element, CIMCStatus*);
  CIMCDateTime* (*newDateTime)(CIMCEnv*, CIMCStatus*);
  CIMCDateTime* (*newDateTimeFromBinary)(CIMCEnv*, uint64_t, CIMCBoolean, CIMCStatus*);
  CIMCDateTime* (*newDateTimeFromChars)(CIMCEnv*, const char*, CIMCStatus*);
  CIMCIndicationListener* (*newIndicationListener)(CIMCEnv*, int sslMode, int* port,
                                                   char** socketName,
                                                   void (*callback)(CIMCInstance*), CIMCStatus*);
  void* (*markHeap)(void);
  void (*releaseHeap)(void*);
};

struct _CIMCClientFT {
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
  CIMCEnumeration* (*associators)(CIMCClient*, CIMCObjectPath*, const char* assocClass,
                                  const char* resultClass, const char* role, const char* resultRole,
                                  CIMCFlags, char** properties, CIMCStatus*);
  CIMCEnumeration* (*associatorNames)(CIMCClient*, CIMCObjectPath*, const char* assocClass,
                                      const char* resultClass, const char* role,
                                      const char* resultRole, CIMCStatus*);
  CIMCEnumeration* (*references)(CIMCClient*, CIMCObjectPath*, const char* resultClass,
                                 const char* role, CIMCFlags, char** properties, CIMCStatus*);
  CIMCEnumeration* (*referenceNames)(CIMCClient*, CIMCObjectPath*, const char* resultClass,
                                     const char* role, CIMCStatus*);
  CIMCData (*invokeMethod)(CIMCClient*, CIMCObjectPath*, const char* method, CIMCArgs* in,
                           CIMCArgs* out, CIMCStatus*);
  CIMCStatus (*setProperty)(CIMCClient*, CIMCObjectPath*, const char* name, CIMCValue*, CIMCType);
  CIMCData (*getProperty)(CIMCClient*, CIMCObjectPath*, const char* name, CIMCStatus*);
};

struct _CIMCObjectPathFT {
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
  CIMCData (*getKeyAt)(CIMCObjectPath*, unsigned int index, CIMCString** name, CIMCStatus*);
  unsigned int (*getKeyCount)(CIMCObjectPath*, CIMCStatus*);
  CIMCStatus (*setNameSpaceFromObjectPath)(CIMCObjectPath*, CIMCObjectPath*);
  CIMCStatus (*setHostAndNameSpaceFromObjectPath)(CIMCObjectPath*, CIMCObjectPath*);
  CIMCData (*getClassQualifier)(CIMCObjectPath*, const char* qualifier, CIMCStatus*);
  CIMCData (*getPropertyQualifier)(CIMCObjectPath*, const char* property, const char* qualifier,
                                   CIMCStatus*);
  CIMCData (*getMethodQualifier)(CIMCObjectPath*, const char* method, const char* qualifier,
                                 CIMCStatus*);
  CIMCData (*getParameterQualifier)(CIMCObjectPath*, const char* method, const char* parameter,
                                    const char* qualifier, CIMCStatus*);
  CIMCString* (*toString)(CIMCObjectPath*, CIMCStatus*);
};

struct _CIMCInstanceFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCInstance*);
  CIMCInstance* (*clone)(CIMCInstance*, CIMCStatus*);
  CIMCData (*getProperty)(CIMCInstance*, const char* name, CIMCStatus*);
  CIMCData (*getPropertyAt)(CIMCInstance*, unsigned int index, CIMCString** name, CIMCStatus*);
  unsigned int (*getPropertyCount)(CIMCInstance*, CIMCStatus*);
  CIMCStatus (*setProperty)(CIMCInstance*, const char* name, CIMCValue*, CIMCType);
  CIMCObjectPath* (*getObjectPath)(CIMCInstance*, CIMCStatus*);
  CIMCStatus (*setPropertyFilter)(CIMCInstance*, char** properties, char** keys);
  CIMCData (*getQualifier)(CIMCInstance*, const char* name, CIMCStatus*);
  CIMCData (*getQualifierAt)(CIMCInstance*, unsigned int index, CIMCString** name, CIMCStatus*);
  unsigned int (*getQualifierCount)(CIMCInstance*, CIMCStatus*);
  CIMCData (*getPropertyQualifier)(CIMCInstance*, const char* property, const char* qualifier,
                                   CIMCStatus*);
  CIMCData (*getPropertyQualifierAt)(CIMCInstance*, const char* property, unsigned int index,
                                     CIMCString** name, CIMCStatus*);
  unsigned int (*getPropertyQualifierCount)(CIMCInstance*, const char* property, CIMCStatus*);
};

struct _CIMCClassFT {
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
                            CIMCStatus*);
};

struct _CIMCArgsFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCArgs*);
  CIMCArgs* (*clone)(CIMCArgs*, CIMCStatus*);
  CIMCStatus (*addArg)(CIMCArgs*, const char* name, CIMCValue*, CIMCType);
  CIMCData (*getArg)(CIMCArgs*, const char* name, CIMCStatus*);
  CIMCData (*getArgAt)(CIMCArgs*, unsigned int index, CIMCString** name, CIMCStatus*);
  unsigned int (*getArgCount)(CIMCArgs*, CIMCStatus*);
};

struct _CIMCArrayFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCArray*);
  CIMCArray* (*clone)(CIMCArray*, CIMCStatus*);
  CIMCCount (*getSize)(CIMCArray*, CIMCStatus*);
  CIMCType (*getSimpleType)(CIMCArray*, CIMCStatus*);
  CIMCData (*getElementAt)(CIMCArray*, CIMCCount index, CIMCStatus*);
  CIMCStatus (*setElementAt)(CIMCArray*, CIMCCount index, CIMCValue*, CIMCType);
};

struct _CIMCStringFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCString*);
  CIMCString* (*clone)(CIMCString*, CIMCStatus*);
  char* (*getCharPtr)(CIMCString*, CIMCStatus*);
};

struct _CIMCDateTimeFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCDateTime*);
  CIMCDateTime* (*clone)(CIMCDateTime*, CIMCStatus*);
  uint64_t (*getBinaryFormat)(CIMCDateTime*, CIMCStatus*);
  CIMCString* (*getStringFormat)(CIMCDateTime*, CIMCStatus*);
  CIMCBoolean (*isInterval)(CIMCDateTime*, CIMCStatus*);
};

struct _CIMCEnumerationFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCEnumeration*);
  CIMCEnumeration* (*clone)(CIMCEnumeration*, CIMCStatus*);
  CIMCData (*getNext)(CIMCEnumeration*, CIMCStatus*);
  CIMCBoolean (*hasNext)(CIMCEnumeration*, CIMCStatus*);
  CIMCArray* (*toArray)(CIMCEnumeration*, CIMCStatus*);
};

struct _CIMCIndicationListenerFT {
  int ftVersion;
  CIMCStatus (*release)(CIMCIndicationListener*);
  CIMCIndicationListener* (*clone)(CIMCIndicationListener*, CIMCStatus*);
  CIMCStatus (*start)(CIMCIndicationListener*);
  CIMCStatus (*stop)(CIMCIndicationListener*);
};
struct _CIMCClient {
  void* hdl;
  CIMCClientFT* ft;
};
struct _CIMCObjectPath {
  void* hdl;
  CIMCObjectPathFT* ft;
};
struct _CIMCInstance {
  void* hdl;
  CIMCInstanceFT* ft;
};
struct _CIMCClass {
  void* hdl;
  CIMCClassFT* ft;
};
struct _CIMCArgs {
  void* hdl;
  CIMCArgsFT* ft;
};
struct _CIMCArray {
  void* hdl;
  CIMCArrayFT* ft;
};
struct _CIMCString {
  void* hdl;
  CIMCStringFT* ft;
};
struct _CIMCDateTime {
  void* hdl;
  CIMCDateTimeFT* ft;
};
struct _CIMCEnumeration {
  void* hdl;
  CIMCEnumerationFT* ft;
};
struct _CIMCIndicationListener {
  void* hdl;
  CIMCIndicationListenerFT* ft;
};
struct _CIMCEnv {
  void* hdl;
  CIMCEnvFT* ft;
  unsigned int options;
};

// NOLINTEND

#ifdef __cplusplus
}
}
#endif

#endif /* CIM_SANDBOX_LOCAL_CIMC_H */
