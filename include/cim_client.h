/**
 * @file cim_client.h
 * @brief The public interface of the CIM client library, libCIM-Client.so.1.
 *
 * A client makes a handle with client_Configuration(), calls the operations
 * (EnumerateInstances(), GetInstance(), invokeMethod() ...), reads the records that
 * they return and releases them with the Free_ function of the first record.
 *
 * Conventions that hold for every declaration below
 *
 *   Records     plain structs, one per CIM-XML element, always on the heap and
 *               zero-filled when made. A null pointer or a 0 means "absent"; every
 *               field may be absent. The order of the fields is the ABI.
 *   Ownership   a record owns what its fields point to, unless the field says
 *               "borrowed". Free_X() releases all of it. Memory comes from malloc()
 *               and calloc(), on both sides.
 *   Lists       a record whose last field is `next` is a list node. Lists keep
 *               document order; functions that take such a record take the list.
 *   Flags       16 bits: 1 is TRUE, 0 is FALSE, anything else is "not given".
 *   Texts       NUL-terminated bytes, UTF-8 on the wire, never escaped: a value that
 *               holds "<" or "&" is escaped by the caller.
 *   Results     0 for success and -1 for failure, or a record and null.
 *   Operations  report an error of the object manager through their last argument, the
 *               error slot: set it to null before the call. Null result and null slot:
 *               nothing was found, or nothing came back.
 *   Threads     reading a document uses process-wide state (#map, #top,
 *               #returnAddress), so only one thread may run operations or parseXML() at
 *               a time. Everything else may run concurrently on different records.
 *
 * The header compiles as C99 and as C++11. Two field names are C++ keywords: C code
 * writes `class` and `namespace`, C++ code writes `class_` and `namespace_`. Layout and
 * symbol names are the same in both languages.
 */
#ifndef CIM_CLIENT_H
#define CIM_CLIENT_H

#include <stdint.h>

/** @cond what the declarations are made with */
#ifdef __cplusplus
#define CIM_FIELD_CLASS class_
#define CIM_FIELD_NAMESPACE namespace_
extern "C" {
#else
#define CIM_FIELD_CLASS class
#define CIM_FIELD_NAMESPACE namespace
#endif

#if defined(__GNUC__)
#define CIM_API __attribute__((visibility("default")))
#define CIM_PRINTF(text, first) __attribute__((format(printf, text, first)))
#else
#define CIM_API
#define CIM_PRINTF(text, first)
#endif
/** @endcond */

typedef struct CIM CIM;
typedef struct CIMDateTime CIMDateTime;
typedef struct CIMInterval CIMInterval;
typedef struct Class Class;
typedef struct ClassName ClassName;
typedef struct ClassPath ClassPath;
typedef struct DeclGroup DeclGroup;
typedef struct DeclGroupWithName DeclGroupWithName;
typedef struct DeclGroupWithPath DeclGroupWithPath;
typedef struct Declaration Declaration;
typedef struct Error Error;
typedef struct ExpMethodCall ExpMethodCall;
typedef struct ExpMethodResponse ExpMethodResponse;
typedef struct ExpParamValue ExpParamValue;
typedef struct IMethodCall IMethodCall;
typedef struct IMethodResponse IMethodResponse;
typedef struct IParamValue IParamValue;
typedef struct IReturnValue IReturnValue;
typedef struct Instance Instance;
typedef struct InstanceName InstanceName;
typedef struct InstancePath InstancePath;
typedef struct KeyBinding KeyBinding;
typedef struct KeyValue KeyValue;
typedef struct LocalClassPath LocalClassPath;
typedef struct LocalInstancePath LocalInstancePath;
typedef struct LocalNamespacePath LocalNamespacePath;
typedef struct Message Message;
typedef struct Method Method;
typedef struct MethodCall MethodCall;
typedef struct MethodResponse MethodResponse;
typedef struct MultiExpReq MultiExpReq;
typedef struct MultiExpRsp MultiExpRsp;
typedef struct MultiReq MultiReq;
typedef struct MultiRsp MultiRsp;
typedef struct NamedInstance NamedInstance;
typedef struct NamedObject NamedObject;
typedef struct Namespace Namespace;
typedef struct NamespacePath NamespacePath;
typedef struct Object Object;
typedef struct ObjectName ObjectName;
typedef struct ObjectPath ObjectPath;
typedef struct ObjectWithLocalPath ObjectWithLocalPath;
typedef struct ObjectWithPath ObjectWithPath;
typedef struct ParamValue ParamValue;
typedef struct Parameter Parameter;
typedef struct ParameterArray ParameterArray;
typedef struct ParameterRefArray ParameterRefArray;
typedef struct ParameterReference ParameterReference;
typedef struct Property Property;
typedef struct PropertyArray PropertyArray;
typedef struct PropertyReference PropertyReference;
typedef struct Qualifier Qualifier;
typedef struct QualifierDecl QualifierDecl;
typedef struct QualifierFlavor QualifierFlavor;
typedef struct ResponseDestination ResponseDestination;
typedef struct ReturnValue ReturnValue;
typedef struct Scope Scope;
typedef struct SimpleExpReq SimpleExpReq;
typedef struct SimpleExpRsp SimpleExpRsp;
typedef struct SimpleReq SimpleReq;
typedef struct SimpleReqAck SimpleReqAck;
typedef struct SimpleRsp SimpleRsp;
typedef struct StackEntry StackEntry;
typedef struct Table Table;
typedef struct TableCellDecl TableCellDecl;
typedef struct TableCellReference TableCellReference;
typedef struct TableRow TableRow;
typedef struct TableRowDecl TableRowDecl;
typedef struct Value Value;
typedef struct ValueArray ValueArray;
typedef struct ValueNull ValueNull;
typedef struct ValueRefArray ValueRefArray;
typedef struct ValueReference ValueReference;

/* ---- Records: values, names and paths ------------------------------------- */

/** VALUE: one value: a text, or an embedded instance. */
struct Value {
  char *text; /**< character data; null when @c instance carries the value or there is none */
  Instance *instance; /**< embedded instance, read from a CDATA section */
  int32_t isCData;    /**< 1: write @c instance as a CDATA section; anything else: write @c text */
  Value *next;        /**< next node, or null */
};

/** VALUE.ARRAY: the values of an array. */
struct ValueArray {
  Value *values;    /**< the elements, in order; a null element of the array has no node */
  ValueArray *next; /**< next node, or null */
};

/** VALUE.REFERENCE: a reference to a class or an instance; exactly one of the six paths is set. */
struct ValueReference {
  ClassPath *classPath;                 /**< a class with host and namespace */
  LocalClassPath *localClassPath;       /**< a class with its namespace */
  ClassName *className;                 /**< a class of the same namespace */
  InstancePath *instancePath;           /**< an instance with host and namespace */
  LocalInstancePath *localInstancePath; /**< an instance with its namespace */
  InstanceName *instanceName;           /**< an instance of the same namespace */
  ValueReference *next;                 /**< next node, or null */
};

/** VALUE.REFARRAY: an array of references. */
struct ValueRefArray {
  ValueReference *valueReferences; /**< the references, in order */
  ValueRefArray *next;             /**< next node, or null */
};

/** VALUE.NULL: a null in a table row. */
struct ValueNull {
  char *text;      /**< never filled by the reader; released when present */
  ValueNull *next; /**< next node, or null */
};

/** KEYVALUE: the value of a key. */
struct KeyValue {
  char *text;      /**< the value */
  char *valueType; /**< "string", "boolean" or "numeric" */
  char *cimType;   /**< CIM type name; read from the TYPE attribute, written as CIMTYPE */
};

/** KEYBINDING: one key of an instance name: a value or a reference. */
struct KeyBinding {
  KeyValue *keyValue;             /**< the value of an ordinary key */
  ValueReference *valueReference; /**< the value of a key that is a reference */
  char *name;                     /**< name of the key property */
  KeyBinding *next;               /**< next node, or null */
};

/**
 * INSTANCENAME: an instance of the namespace at hand: class and keys. A singleton has no
 * keys; instead of named keys there may be one bare value or reference.
 */
struct InstanceName {
  KeyBinding *keyBindings;        /**< the keys, in document order */
  KeyValue *keyValue;             /**< the only key, given without its name */
  ValueReference *valueReference; /**< the only key, a reference given without its name */
  ClassName *className;           /**< the class; a single node */
  InstanceName *next;             /**< next node, or null */
};

/** CLASSNAME: the name of a class. */
struct ClassName {
  char *name;      /**< the name, such as "CIM_Fan" */
  ClassName *next; /**< next node, or null */
};

/** NAMESPACE: one segment of a namespace, such as "root". */
struct Namespace {
  char *name;      /**< the segment */
  Namespace *next; /**< next node, or null */
};

/** LOCALNAMESPACEPATH: a namespace of the object manager at hand. */
struct LocalNamespacePath {
  Namespace *namespaces; /**< the segments, outermost first */
};

/** NAMESPACEPATH: a namespace of a host. */
struct NamespacePath {
  char *host;                             /**< name or address of the host; null: not given */
  LocalNamespacePath *localNamespacePath; /**< the namespace */
};

/** CLASSPATH: a class with host and namespace. */
struct ClassPath {
  NamespacePath *namespacePath; /**< where the class is */
  ClassName *className;         /**< the class; a single node */
};

/** LOCALCLASSPATH: a class with its namespace. */
struct LocalClassPath {
  LocalNamespacePath *localNamespacePath; /**< where the class is */
  ClassName *className;                   /**< the class; a single node */
};

/** INSTANCEPATH: an instance with host and namespace. */
struct InstancePath {
  NamespacePath *namespacePath; /**< where the instance is; null: not given */
  InstanceName *instanceName;   /**< the instance; ReferenceNames() returns a whole list here */
};

/** LOCALINSTANCEPATH: an instance with its namespace. */
struct LocalInstancePath {
  LocalNamespacePath *localNamespacePath; /**< where the instance is */
  InstanceName *instanceName;             /**< the instance; a single node */
};

/**
 * OBJECTPATH: the path of an instance or of a class: one of the two is set. Read from OBJECTPATH,
 * written as VALUE.OBJECTPATH.
 */
struct ObjectPath {
  InstancePath *instancePath; /**< path of an instance */
  ClassPath *classPath;       /**< path of a class; written before the instance path */
  ObjectPath *next;           /**< next node, or null */
};

/* ---- Records: schema ------------------------------------------------------ */

/** QUALIFIERFLAVOR: the flavor attributes of a qualifier or qualifier declaration. */
struct QualifierFlavor {
  int16_t overridable;  /**< OVERRIDABLE */
  int16_t toSubclass;   /**< TOSUBCLASS */
  int16_t toInstance;   /**< TOINSTANCE */
  int16_t translatable; /**< TRANSLATABLE */
};

/** SCOPE: the kinds of element on which a qualifier may stand. */
struct Scope {
  int16_t CIM_FIELD_CLASS; /**< CLASS */
  int16_t association;     /**< ASSOCIATION */
  int16_t reference;       /**< REFERENCE */
  int16_t property;        /**< PROPERTY */
  int16_t method;          /**< METHOD */
  int16_t parameter;       /**< PARAMETER */
  int16_t indication;      /**< INDICATION */
};

/** QUALIFIER: a qualifier: @c value or @c valueArray is set. */
struct Qualifier {
  Value *value;           /**< its value */
  ValueArray *valueArray; /**< its values */
  char *name;             /**< name */
  char *type;             /**< CIM type name */
  int16_t propagated; /**< flag; read from PROPAGATED as a number, so "1" is 1 and "true" is 0 */
  QualifierFlavor
      *qualifierFlavor; /**< null: no flavor given; all zero when read from a document */
  Qualifier *next;      /**< next node, or null */
};

/** QUALIFIER.DECLARATION: a qualifier declaration: @c value or @c valueArray is the default. */
struct QualifierDecl {
  Scope *scope;           /**< where the qualifier may stand; never read from a document */
  Value *value;           /**< default value */
  ValueArray *valueArray; /**< default values */
  char *name;             /**< name */
  char *type;             /**< CIM type name */
  int16_t isArray;        /**< flag */
  int32_t arraySize;      /**< elements; 0: not bounded */
  QualifierFlavor
      *qualifierFlavor; /**< null: no flavor given; all zero when read from a document */
  QualifierDecl *next;  /**< next node, or null */
};

/** PROPERTY: a property. */
struct Property {
  Qualifier *qualifiers; /**< its qualifiers */
  Value *value;          /**< its value; null: the property is null */
  char *name;            /**< name */
  char *type;            /**< CIM type name */
  char *classOrigin;     /**< class that introduced it; null: not given */
  int16_t propagated;    /**< flag; read from PROPAGATED as a number, so "1" is 1 and "true" is 0 */
  Property *next;        /**< next node, or null */
};

/** PROPERTY.ARRAY: an array property. */
struct PropertyArray {
  Qualifier *qualifiers;  /**< its qualifiers */
  ValueArray *valueArray; /**< its values; null: the property is null */
  char *name;             /**< name */
  char *type;             /**< CIM type name of an element */
  int32_t arraySize;      /**< elements; 0: not bounded */
  char *classOrigin;      /**< class that introduced it; null: not given */
  int16_t propagated;  /**< flag; read from PROPAGATED as a number, so "1" is 1 and "true" is 0 */
  PropertyArray *next; /**< next node, or null */
};

/** PROPERTY.REFERENCE: a reference property. */
struct PropertyReference {
  Qualifier *qualifiers;          /**< its qualifiers */
  ValueReference *valueReference; /**< its value; null: the property is null */
  char *name;                     /**< name */
  char *referenceClass;           /**< class that it refers to */
  char *classOrigin;              /**< class that introduced it; null: not given */
  int16_t propagated; /**< flag; read from PROPAGATED as a number, so "1" is 1 and "true" is 0 */
  PropertyReference *next; /**< next node, or null */
};

/** METHOD: a method. */
struct Method {
  Qualifier *qualifiers;                   /**< its qualifiers */
  Parameter *parameters;                   /**< its plain parameters */
  ParameterReference *parameterReferences; /**< its reference parameters */
  ParameterArray *parameterArrays;         /**< its array parameters */
  ParameterRefArray *parameterRefArrays;   /**< its reference array parameters */
  char *name;                              /**< name */
  char *type;                              /**< CIM type name of the return value */
  char *classOrigin;                       /**< class that introduced it; null: not given */
  int16_t propagated; /**< flag; read from PROPAGATED as a number, so "1" is 1 and "true" is 0 */
  Method *next;       /**< next node, or null */
};

/** PARAMETER: a parameter of a method. */
struct Parameter {
  Qualifier *qualifiers; /**< its qualifiers */
  char *name;            /**< name */
  char *type;            /**< CIM type name */
  Parameter *next;       /**< next node, or null */
};

/** PARAMETER.REFERENCE: a reference parameter. */
struct ParameterReference {
  Qualifier *qualifiers;    /**< its qualifiers */
  char *name;               /**< name */
  char *referenceClass;     /**< class that it refers to */
  ParameterReference *next; /**< next node, or null */
};

/** PARAMETER.ARRAY: an array parameter. */
struct ParameterArray {
  Qualifier *qualifiers; /**< its qualifiers */
  char *name;            /**< name */
  char *type;            /**< CIM type name of an element */
  int32_t arraySize;     /**< elements; 0: not bounded */
  ParameterArray *next;  /**< next node, or null */
};

/** PARAMETER.REFARRAY: a reference array parameter. */
struct ParameterRefArray {
  Qualifier *qualifiers;   /**< its qualifiers */
  char *name;              /**< name */
  char *referenceClass;    /**< class that it refers to */
  int32_t arraySize;       /**< elements; 0: not bounded */
  ParameterRefArray *next; /**< next node, or null */
};

/** CLASS: a class definition. */
struct Class {
  Qualifier *qualifiers;                 /**< its qualifiers */
  Property *properties;                  /**< its plain properties, in document order */
  PropertyArray *propertyArrays;         /**< its array properties, in document order */
  PropertyReference *propertyReferences; /**< its reference properties, in document order */
  Method *methods;                       /**< its methods */
  char *name;                            /**< name */
  char *superClass;                      /**< name of the superclass; null: a root class */
  Class *next;                           /**< next node, or null */
};

/**
 * INSTANCE: an instance. Each kind of property keeps its own order; the order between
 * kinds is not kept.
 */
struct Instance {
  Qualifier *qualifiers;                 /**< its qualifiers */
  ClassName *className;                  /**< its class; a single node */
  Property *properties;                  /**< its plain properties, in document order */
  PropertyArray *propertyArrays;         /**< its array properties, in document order */
  PropertyReference *propertyReferences; /**< its reference properties, in document order */
  Instance *next;                        /**< next node, or null */
};

/** VALUE.NAMEDINSTANCE: an instance with its name. */
struct NamedInstance {
  InstanceName *instanceName; /**< name of @c instance */
  Instance *instance;         /**< an instance */
  NamedInstance *next;        /**< next node, or null */
};

/** VALUE.OBJECT: a class or an instance: one of the two is set. */
struct Object {
  Class *CIM_FIELD_CLASS; /**< a class */
  Instance *instance;     /**< an instance */
  Object *next;           /**< next node, or null */
};

/** VALUE.OBJECTWITHPATH: a class with its path, or an instance with its path. */
struct ObjectWithPath {
  ClassPath *classPath;       /**< path of the class */
  Class *CIM_FIELD_CLASS;     /**< a class */
  InstancePath *instancePath; /**< path of @c instance */
  Instance *instance;         /**< an instance */
  ObjectWithPath *next;       /**< next node, or null */
};

/** VALUE.OBJECTWITHLOCALPATH: a class with its local path, or an instance with its local path. */
struct ObjectWithLocalPath {
  LocalClassPath *localClassPath;       /**< path of the class */
  Class *CIM_FIELD_CLASS;               /**< a class */
  LocalInstancePath *localInstancePath; /**< path of @c instance */
  Instance *instance;                   /**< an instance */
  ObjectWithLocalPath *next;            /**< next node, or null */
};

/** VALUE.NAMEDOBJECT: a class, or an instance with its name. */
struct NamedObject {
  Class *CIM_FIELD_CLASS;     /**< a class */
  InstanceName *instanceName; /**< name of @c instance */
  Instance *instance;         /**< an instance */
  NamedObject *next;          /**< next node, or null */
};

/* ---- Records: messages and declarations ----------------------------------- */

/** CIM: the root of a document. */
struct CIM {
  Message *message;         /**< the message, or */
  Declaration *declaration; /**< the declarations */
  char *cimVersion;         /**< CIMVERSION, "2.0" */
  char *dtdVersion;         /**< DTDVERSION, "2.0" */
};

/**
 * MESSAGE: a request, a response, or an export (indication) message: one of the eight
 * is set. The writer leaves the export messages out.
 */
struct Message {
  char *id;                   /**< ID, "1234" in every request of the library */
  char *protocolVersion;      /**< PROTOCOLVERSION, "1.0" */
  SimpleReq *simpleReq;       /**< a request */
  MultiReq *multiReq;         /**< several requests */
  SimpleRsp *simpleRsp;       /**< a response */
  MultiRsp *multiRsp;         /**< several responses */
  SimpleExpReq *simpleExpReq; /**< an indication */
  MultiExpReq *multiExpReq;   /**< several indications */
  SimpleExpRsp *simpleExpRsp; /**< the answer to an indication */
  MultiExpRsp *multiExpRsp;   /**< the answer to several indications */
};

/** SIMPLEREQ: a request: an operation or a method call. */
struct SimpleReq {
  IMethodCall *iMethodCall; /**< an operation */
  MethodCall *methodCall;   /**< a method of a class or an instance */
  SimpleReq *next;          /**< next node, or null */
};

/** MULTIREQ: several requests. */
struct MultiReq {
  SimpleReq *simpleReqs; /**< the requests */
};

/** SIMPLERSP: a response: one of the three is set. */
struct SimpleRsp {
  MethodResponse *methodResponse;   /**< answer of a method */
  IMethodResponse *iMethodResponse; /**< answer of an operation */
  SimpleReqAck *simpleReqAck;       /**< acknowledgement; never written */
  SimpleRsp *next;                  /**< next node, or null */
};

/** MULTIRSP: several responses. */
struct MultiRsp {
  SimpleRsp *simpleRsps; /**< the responses */
};

/** IMETHODCALL: a call of an operation. */
struct IMethodCall {
  LocalNamespacePath *localNamespacePath;   /**< namespace that it addresses */
  IParamValue *iParamValues;                /**< its parameters, in the order written */
  ResponseDestination *responseDestination; /**< where the answer goes; null: back */
  char *name;                               /**< name of the operation, such as "GetClass" */
};

/** IMETHODRESPONSE: the answer of an operation. */
struct IMethodResponse {
  char *name;   /**< name of the operation */
  Error *error; /**< the error that it ended in; null: none */
  IReturnValue
      *iReturnValue; /**< what it returned; null after an error or when it returns nothing */
};

/** METHODCALL: a call of a method of a class or an instance. */
struct MethodCall {
  char *name;                               /**< name of the method */
  LocalClassPath *localClassPath;           /**< the class, or */
  LocalInstancePath *localInstancePath;     /**< the instance */
  ParamValue *paramValues;                  /**< its input parameters */
  ResponseDestination *responseDestination; /**< where the answer goes; null: back */
};

/** METHODRESPONSE: the answer of a method. */
struct MethodResponse {
  char *name;               /**< name of the method */
  Error *error;             /**< the error that it ended in; null: none */
  ReturnValue *returnValue; /**< what it returned */
  ParamValue *paramValues;  /**< its output parameters */
};

/** RETURNVALUE: the return value of a method: one of the two is set. */
struct ReturnValue {
  Value *value;                   /**< a value */
  ValueReference *valueReference; /**< a reference */
  char *paramType;                /**< CIM type name */
};

/** ERROR: an error of the object manager, of the local broker, or the library's own "401". */
struct Error {
  Instance *instance; /**< details, as instances */
  char *code;         /**< decimal CIM status code, such as "6"; "401": user or password refused */
  char *description;  /**< text for people; may be null */
};

/** RESPONSEDESTINATION: where an answer is to go. */
struct ResponseDestination {
  Instance *instance; /**< an instance that describes the destination */
};

/** SIMPLEREQACK: an acknowledgement. */
struct SimpleReqAck {
  Error *error;     /**< null: accepted */
  char *instanceId; /**< INSTANCEID */
};

/**
 * IPARAMVALUE: one parameter of an operation. Everything but @c name is borrowed: whoever
 * built the request keeps and releases it.
 */
struct IParamValue {
  char *name;                     /**< name of the parameter, such as "ClassName"; owned */
  Value *value;                   /**< borrowed: a value */
  ValueArray *valueArray;         /**< borrowed: values */
  ValueReference *valueReference; /**< borrowed: a reference */
  ClassName *className;           /**< borrowed: the name of a class */
  InstanceName *instanceName;     /**< borrowed: the name of an instance */
  QualifierDecl *qualifierDecl;   /**< borrowed: a qualifier declaration */
  Class *CIM_FIELD_CLASS;         /**< borrowed: a class */
  Instance *instance;             /**< borrowed: an instance */
  NamedInstance *namedInstance;   /**< borrowed: an instance with its name */
  IParamValue *next;              /**< next node, or null */
};

/** IRETURNVALUE: what an operation returned: one of the thirteen is set. */
struct IReturnValue {
  ClassName *className;                     /**< names of classes */
  InstanceName *instanceName;               /**< names of instances */
  Value *value;                             /**< values */
  ObjectWithPath *objectWithPath;           /**< objects with their paths */
  ObjectWithLocalPath *objectWithLocalPath; /**< objects with their local paths */
  Object *object;                           /**< objects */
  ObjectPath *objectPath;                   /**< paths of objects */
  QualifierDecl *qualifierDecl;             /**< qualifier declarations */
  ValueArray *valueArray;                   /**< arrays */
  ValueReference *valueReference;           /**< references */
  Class *CIM_FIELD_CLASS;                   /**< classes */
  Instance *instance;                       /**< instances */
  NamedInstance *namedInstance;             /**< instances with their names */
};

/**
 * PARAMVALUE: an input or output parameter of a method: one of the four values is set, or
 * none when it is null.
 */
struct ParamValue {
  char *name;                     /**< name of the parameter */
  char *paramType;                /**< CIM type name; null: not given */
  Value *value;                   /**< a value */
  ValueReference *valueReference; /**< a reference */
  ValueArray *valueArray;         /**< an array; written before @c valueReference */
  ValueRefArray *valueRefArray;   /**< an array of references */
  ParamValue *next;               /**< next node, or null */
};

/** EXPPARAMVALUE: a parameter of an export call. */
struct ExpParamValue {
  char *name;                       /**< name of the parameter, such as "NewIndication" */
  Instance *instance;               /**< the indication */
  Value *value;                     /**< a value */
  MethodResponse *methodResponse;   /**< an answer */
  IMethodResponse *iMethodResponse; /**< an answer */
  ExpParamValue *next;              /**< next node, or null */
};

/** EXPMETHODCALL: an export call. */
struct ExpMethodCall {
  char *name;                    /**< name of the call, such as "ExportIndication" */
  ExpParamValue *expParamValues; /**< its parameters */
};

/** EXPMETHODRESPONSE: the answer to an export call. */
struct ExpMethodResponse {
  char *name;   /**< name of the call */
  Error *error; /**< the error that it ended in; null: none */
  IReturnValue
      *iReturnValue; /**< what it returned; null after an error or when it returns nothing */
};

/** SIMPLEEXPREQ: an export request. */
struct SimpleExpReq {
  ExpMethodCall *expMethodCall; /**< the call */
  SimpleExpReq *next;           /**< next node, or null */
};

/** MULTIEXPREQ: several export requests. */
struct MultiExpReq {
  SimpleExpReq *simpleExpReqs; /**< the requests */
};

/** SIMPLEEXPRSP: the answer to an export request. */
struct SimpleExpRsp {
  ExpMethodResponse *expMethodResponse; /**< the answer */
};

/** MULTIEXPRSP: the answer to several export requests. */
struct MultiExpRsp {
  SimpleExpRsp *simpleExpRsp; /**< one answer: the record holds the last */
};

/** DECLARATION: declarations of classes and instances. */
struct Declaration {
  DeclGroup *declGroup;                 /**< without names or paths */
  DeclGroupWithName *declGroupWithName; /**< with names */
  DeclGroupWithPath *declGroupWithPath; /**< with paths */
};

/** DECLGROUP: a group of declarations. */
struct DeclGroup {
  LocalNamespacePath *localNamespacePath; /**< the namespace */
  NamespacePath *namespacePath;           /**< the namespace, with its host */
  QualifierDecl *qualifierDecls;          /**< qualifier declarations */
  Object *objects;                        /**< classes and instances */
};

/** DECLGROUP.WITHNAME: a group of declarations with names. */
struct DeclGroupWithName {
  LocalNamespacePath *localNamespacePath; /**< the namespace */
  NamespacePath *namespacePath;           /**< the namespace, with its host */
  QualifierDecl *qualifierDecls;          /**< qualifier declarations */
  NamedObject *namedObjects;              /**< classes and named instances */
};

/** DECLGROUP.WITHPATH: a group of declarations with paths. */
struct DeclGroupWithPath {
  ObjectWithPath *objectWithPaths;           /**< objects with their paths */
  ObjectWithLocalPath *objectWithLocalPaths; /**< objects with their local paths */
};

/** TABLE: a table of results; read, never written. */
struct Table {
  TableRowDecl *tableRowDecl; /**< its columns */
  TableRow *tableRows;        /**< its rows */
};

/** TABLEROW.DECLARATION: the columns of a table. */
struct TableRowDecl {
  TableCellDecl *tableCellDecls;           /**< columns of values */
  TableCellReference *tableCellReferences; /**< columns of references */
};

/** TABLECELLDECL: a column of values. */
struct TableCellDecl {
  char *name;          /**< name */
  char *type;          /**< CIM type name */
  int16_t isArray;     /**< flag */
  int32_t arraySize;   /**< elements; 0: not bounded */
  int16_t cellPos;     /**< position of the column */
  int16_t sortPos;     /**< rank of the column in the sort order */
  int32_t sortDir;     /**< 1 ascending, 2 descending, 0 not given */
  TableCellDecl *next; /**< next node, or null */
};

/** TABLECELLREFERENCE: a column of references. */
struct TableCellReference {
  char *name;               /**< name */
  char *referenceClass;     /**< class that it refers to */
  int16_t isArray;          /**< flag */
  int32_t arraySize;        /**< elements; 0: not bounded */
  int16_t cellPos;          /**< position of the column */
  int16_t sortPos;          /**< rank of the column in the sort order */
  int32_t sortDir;          /**< 1 ascending, 2 descending, 0 not given */
  TableCellReference *next; /**< next node, or null */
};

/** TABLEROW: one row of a table. */
struct TableRow {
  Value *value;                   /**< its values */
  ValueArray *valueArray;         /**< its arrays */
  ValueReference *valueReference; /**< its references */
  ValueRefArray *valueRefArray;   /**< its arrays of references */
  ValueNull *valueNull;           /**< its nulls */
  TableRow *next;                 /**< next node, or null */
};

/* ---- Records: the client's own ------------------------------------------- */

/** The object of an association operation: a class or an instance. The class goes first
 * when both are set. */
struct ObjectName {
  ClassName *className;       /**< a class, or */
  InstanceName *instanceName; /**< an instance */
};

/** Date and time of CIMC_ConvertDateTimeToString(). */
struct CIMDateTime {
  int32_t year;        /**< year, such as 2024 */
  int32_t month;       /**< 1 to 12 */
  int32_t day;         /**< 1 to 31 */
  int32_t hour;        /**< 0 to 23 */
  int32_t minute;      /**< 0 to 59 */
  int32_t second;      /**< 0 to 59 */
  int32_t microsecond; /**< not read: the text always says 000000 */
  int32_t utcOffset;   /**< minutes east of UTC; negative: west */
};

/** Time span of CIMC_ConvertIntervalToString(). */
struct CIMInterval {
  int32_t days;    /**< days */
  int32_t hours;   /**< 0 to 23 */
  int32_t minutes; /**< 0 to 59 */
  int32_t seconds; /**< 0 to 59 */
};

/* ---- Client handle -------------------------------------------------------- */

/** A client handle: where the object manager is and which back end serves it. Read only
 * between creation and release, but for CIMC_SetNamespace(). */
struct client_Configuration {
  char *host;                /**< dotted-decimal IPv4 address; no name is looked up */
  uint32_t port;             /**< TCP port; its low 16 bits count */
  char *CIM_FIELD_NAMESPACE; /**< namespace of every operation, such as "root/cimv2" */
  uint32_t timeout;          /**< receive time-out in milliseconds, without effect: see
                                  CIMSendRequest() */
  char *user;                /**< user name */
  char *password;            /**< password; cleared before it is released */
  int32_t interface;         /**< back end: 0 CIM-XML over HTTP, 1 local broker */
};

/** @defgroup handle_family Handle
 * @{ */

/**
 * Makes a handle. The back end is chosen here, once: the local broker when the file
 * "/etc/Binary.txt" can be opened, otherwise CIM-XML.
 *
 * @param host       address, copied; may be null (then CIM-XML operations fail)
 * @param port       TCP port
 * @param nameSpace  namespace, copied; may be null and set later
 * @param timeout    milliseconds, kept as given
 * @param user       user name, copied; must not be null
 * @param password   password, copied; must not be null
 * @return the handle, to be released with Free_client_Configuration(); null when user or
 *         password is null or memory runs out
 */
#if defined(__cplusplus) && defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow" /* a struct and a function of one name */
#endif
CIM_API struct client_Configuration *client_Configuration(const char *host, uint32_t port,
                                                          const char *nameSpace, uint32_t timeout,
                                                          const char *user, const char *password);
#if defined(__cplusplus) && defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

/** Releases a handle and its texts. @return 0, or -1 for a null handle */
CIM_API int Free_client_Configuration(struct client_Configuration *handle);

/**
 * Replaces the namespace by a copy of @p nameSpace.
 * @return 0, or -1 when an argument is null or memory runs out: the old one stays
 */
CIM_API int CIMC_SetNamespace(struct client_Configuration *handle, const char *nameSpace);

/**
 * Copies the namespace as strncpy() does: a namespace of @p length or more characters
 * leaves the buffer without a terminator.
 * @return 0, or -1 when an argument or the namespace is null: the buffer is untouched
 */
CIM_API int CIMC_GetNamespace(const struct client_Configuration *handle, char *buffer,
                              uint32_t length);

/**
 * Fills the first @p length bytes of @p buffer with the user name, cut to fit, and
 * zeros: always terminated. All zeros when the handle has no user name.
 * @return 0, or -1 for a null handle or buffer: the buffer is untouched
 */
CIM_API int CIMC_GetUserNameFromHandle(const struct client_Configuration *handle, char *buffer,
                                       uint32_t length);

/**
 * Copies the password whole. The buffer must have room for it: there is no bound.
 * @return 0, also when the handle has no password and the buffer is untouched; -1 for a
 *         null handle or buffer
 */
CIM_API int CIMC_GetPassWordFromHandle(const struct client_Configuration *handle, char *buffer);

/** Looks for "/etc/Binary.txt". @return 0 when it can be opened, -1 when not */
CIM_API int checkForBinary(void);

/** @return the back end that a new handle gets: 1 local broker, 0 CIM-XML */
CIM_API int get_cimc_interface(void);

/** @} */

/** @defgroup free_family Release
 *
 * Each Free_X() releases a record with everything that it owns; of a list, the given
 * node and every node after it. Null is allowed. Lists of any length are released
 * without recursion. Always returns 0.
 * @{ */

/** Releases a text: the name of a class, property, key, .... */
CIM_API int Free_CIMName(char *text);
/** Releases a text: the name of a CIM type. */
CIM_API int Free_CIMType(char *text);
/** Releases a text: the name of the class that introduced an element. */
CIM_API int Free_ClassOrigin(char *text);
/** Releases a text: the name of the class that a reference refers to. */
CIM_API int Free_ReferenceClass(char *text);
/** Releases a text: the CIM type name of a parameter or return value. */
CIM_API int Free_ParamType(char *text);
/** Releases a text: the kind of a key value. */
CIM_API int Free_ValueType(char *text);
/** Releases a text: the text of a key value. */
CIM_API int Free_PCData(char *text);
/** Releases a text: the name or address of a host. */
CIM_API int Free_Host(char *text);
/** Releases VALUE records: @p list and every node after it. */
CIM_API int Free_Value(Value *list);
/** Releases VALUE.ARRAY records: @p list and every node after it. */
CIM_API int Free_ValueArray(ValueArray *list);
/** Releases VALUE.REFERENCE records: @p list and every node after it. */
CIM_API int Free_ValueReference(ValueReference *list);
/** Releases VALUE.REFARRAY records: @p list and every node after it. */
CIM_API int Free_ValueRefArray(ValueRefArray *list);
/** Releases VALUE.NULL records: @p list and every node after it. */
CIM_API int Free_ValueNull(ValueNull *list);
/** Releases a KEYVALUE record. */
CIM_API int Free_KeyValue(KeyValue *record);
/** Releases KEYBINDING records: @p list and every node after it. */
CIM_API int Free_KeyBinding(KeyBinding *list);
/** Releases INSTANCENAME records: @p list and every node after it. */
CIM_API int Free_InstanceName(InstanceName *list);
/** Releases CLASSNAME records: @p list and every node after it. */
CIM_API int Free_ClassName(ClassName *list);
/** Releases NAMESPACE records: @p list and every node after it. */
CIM_API int Free_Namespace(Namespace *list);
/** Releases a LOCALNAMESPACEPATH record. */
CIM_API int Free_LocalNamespacePath(LocalNamespacePath *record);
/** Releases a NAMESPACEPATH record. */
CIM_API int Free_NamespacePath(NamespacePath *record);
/** Releases a CLASSPATH record. */
CIM_API int Free_ClassPath(ClassPath *record);
/** Releases a LOCALCLASSPATH record. */
CIM_API int Free_LocalClassPath(LocalClassPath *record);
/** Releases an INSTANCEPATH record. */
CIM_API int Free_InstancePath(InstancePath *record);
/** Releases a LOCALINSTANCEPATH record. */
CIM_API int Free_LocalInstancePath(LocalInstancePath *record);
/** Releases OBJECTPATH records: @p list and every node after it. */
CIM_API int Free_ObjectPath(ObjectPath *list);
/** Releases a QUALIFIERFLAVOR record. */
CIM_API int Free_QualifierFlavor(QualifierFlavor *record);
/** Releases a SCOPE record. */
CIM_API int Free_Scope(Scope *record);
/** Releases QUALIFIER records: @p list and every node after it. */
CIM_API int Free_Qualifier(Qualifier *list);
/** Releases QUALIFIER.DECLARATION records: @p list and every node after it. */
CIM_API int Free_QualifierDecl(QualifierDecl *list);
/** Releases PROPERTY records: @p list and every node after it. */
CIM_API int Free_Property(Property *list);
/** Releases PROPERTY.ARRAY records: @p list and every node after it. */
CIM_API int Free_PropertyArray(PropertyArray *list);
/** Releases PROPERTY.REFERENCE records: @p list and every node after it. */
CIM_API int Free_PropertyReference(PropertyReference *list);
/** Releases METHOD records: @p list and every node after it. */
CIM_API int Free_Method(Method *list);
/** Releases PARAMETER records: @p list and every node after it. */
CIM_API int Free_Parameter(Parameter *list);
/** Releases PARAMETER.REFERENCE records: @p list and every node after it. */
CIM_API int Free_ParameterReference(ParameterReference *list);
/** Releases PARAMETER.ARRAY records: @p list and every node after it. */
CIM_API int Free_ParameterArray(ParameterArray *list);
/** Releases PARAMETER.REFARRAY records: @p list and every node after it. */
CIM_API int Free_ParameterRefArray(ParameterRefArray *list);
/** Releases CLASS records: @p list and every node after it. */
CIM_API int Free_Class(Class *list);
/** Releases INSTANCE records: @p list and every node after it. */
CIM_API int Free_Instance(Instance *list);
/** Releases VALUE.NAMEDINSTANCE records: @p list and every node after it. */
CIM_API int Free_NamedInstance(NamedInstance *list);
/** Releases VALUE.OBJECT records: @p list and every node after it. */
CIM_API int Free_Object(Object *list);
/** Releases VALUE.OBJECTWITHPATH records: @p list and every node after it. */
CIM_API int Free_ObjectWithPath(ObjectWithPath *list);
/** Releases VALUE.OBJECTWITHLOCALPATH records: @p list and every node after it. */
CIM_API int Free_ObjectWithLocalPath(ObjectWithLocalPath *list);
/** Releases VALUE.NAMEDOBJECT records: @p list and every node after it. */
CIM_API int Free_NamedObject(NamedObject *list);
/** Releases a CIM record. */
CIM_API int Free_CIM(CIM *record);
/** Releases a MESSAGE record. */
CIM_API int Free_Message(Message *record);
/** Releases SIMPLEREQ records: @p list and every node after it. */
CIM_API int Free_SimpleReq(SimpleReq *list);
/** Releases a MULTIREQ record. */
CIM_API int Free_MultiReq(MultiReq *record);
/** Releases SIMPLERSP records: @p list and every node after it. */
CIM_API int Free_SimpleRsp(SimpleRsp *list);
/** Releases a MULTIRSP record. */
CIM_API int Free_MultiRsp(MultiRsp *record);
/** Releases an IMETHODCALL record. */
CIM_API int Free_IMethodCall(IMethodCall *record);
/** Releases an IMETHODRESPONSE record. */
CIM_API int Free_IMethodResponse(IMethodResponse *record);
/** Releases a METHODCALL record. */
CIM_API int Free_MethodCall(MethodCall *record);
/** Releases a METHODRESPONSE record. */
CIM_API int Free_MethodResponse(MethodResponse *record);
/** Releases a RETURNVALUE record. */
CIM_API int Free_ReturnValue(ReturnValue *record);
/** Releases an ERROR record. */
CIM_API int Free_Error(Error *record);
/** Releases a RESPONSEDESTINATION record. */
CIM_API int Free_ResponseDestination(ResponseDestination *record);
/** Releases a SIMPLEREQACK record. */
CIM_API int Free_SimpleReqAck(SimpleReqAck *record);
/** Releases the nodes and their names only: the parameters themselves are borrowed. */
CIM_API int Free_IParamValue(IParamValue *list);
/** Releases an IRETURNVALUE record. */
CIM_API int Free_IReturnValue(IReturnValue *record);
/** Releases PARAMVALUE records: @p list and every node after it. */
CIM_API int Free_ParamValue(ParamValue *list);
/** Releases EXPPARAMVALUE records: @p list and every node after it. */
CIM_API int Free_ExpParamValue(ExpParamValue *list);
/** Releases an EXPMETHODCALL record. */
CIM_API int Free_ExpMethodCall(ExpMethodCall *record);
/** Releases an EXPMETHODRESPONSE record. */
CIM_API int Free_ExpMethodResponse(ExpMethodResponse *record);
/** Releases SIMPLEEXPREQ records: @p list and every node after it. */
CIM_API int Free_SimpleExpReq(SimpleExpReq *list);
/** Releases a MULTIEXPREQ record. */
CIM_API int Free_MultiExpReq(MultiExpReq *record);
/** Releases a SIMPLEEXPRSP record. */
CIM_API int Free_SimpleExpRsp(SimpleExpRsp *record);
/** Releases a MULTIEXPRSP record. */
CIM_API int Free_MultiExpRsp(MultiExpRsp *record);
/** Releases a DECLARATION record. */
CIM_API int Free_Declaration(Declaration *record);
/** Releases a DECLGROUP record. */
CIM_API int Free_DeclGroup(DeclGroup *record);
/** Releases a DECLGROUP.WITHNAME record. */
CIM_API int Free_DeclGroupWithName(DeclGroupWithName *record);
/** Releases a DECLGROUP.WITHPATH record. */
CIM_API int Free_DeclGroupWithPath(DeclGroupWithPath *record);
/** Releases a TABLE record. */
CIM_API int Free_Table(Table *record);
/** Releases a TABLEROW.DECLARATION record. */
CIM_API int Free_TableRowDecl(TableRowDecl *record);
/** Releases TABLECELLDECL records: @p list and every node after it. */
CIM_API int Free_TableCellDecl(TableCellDecl *list);
/** Releases TABLECELLREFERENCE records: @p list and every node after it. */
CIM_API int Free_TableCellReference(TableCellReference *list);
/** Releases TABLEROW records: @p list and every node after it. */
CIM_API int Free_TableRow(TableRow *list);
/** @} */

/** @defgroup clone_family Copies
 *
 * Each Clone_X() stores a deep copy of @p source in @p *copy: of a list, the given node
 * and every node after it. A null source stores null. The caller releases the copy with
 * Free_X().
 *
 * Returns 0, or -1 when @p copy is null (nothing happens) or memory runs out: @p *copy
 * then holds what was copied so far, which the caller releases.
 * @{ */

/** Copies a text: the name of a class, property, key, .... */
CIM_API int Clone_CIMName(const char *source, char **copy);
/** Copies a text: the name of a CIM type. */
CIM_API int Clone_CIMType(const char *source, char **copy);
/** Copies a text: the name or address of a host. */
CIM_API int Clone_Host(const char *source, char **copy);
/** Copies a text: the text of a key value. */
CIM_API int Clone_PCData(const char *source, char **copy);
/** Copies a text: the kind of a key value. */
CIM_API int Clone_ValueType(const char *source, char **copy);
/** Copies a text: the CIM type name of a parameter or return value. */
CIM_API int Clone_ParamType(const char *source, char **copy);
/** Copies the first character only of the name of the class that introduced an element. */
CIM_API int Clone_ClassOrigin(const char *source, char **copy);
/** Copies the first character only of the name of the class that a reference refers to. */
CIM_API int Clone_ReferenceClass(const char *source, char **copy);
/** Copies the record of QUALIFIERFLAVOR. */
CIM_API int Clone_QualifierFlavor(const QualifierFlavor *source, QualifierFlavor **copy);
/** Copies CLASSNAME records: @p source and every node after it. */
CIM_API int Clone_ClassName(const ClassName *source, ClassName **copy);
/** Copies NAMESPACE records: @p source and every node after it. */
CIM_API int Clone_Namespace(const Namespace *source, Namespace **copy);
/** Copies the record of LOCALNAMESPACEPATH. */
CIM_API int Clone_LocalNamespacePath(const LocalNamespacePath *source, LocalNamespacePath **copy);
/** Copies the record of NAMESPACEPATH. */
CIM_API int Clone_NamespacePath(const NamespacePath *source, NamespacePath **copy);
/** Copies the record of CLASSPATH. */
CIM_API int Clone_ClassPath(const ClassPath *source, ClassPath **copy);
/** Copies the record of LOCALCLASSPATH. */
CIM_API int Clone_LocalClassPath(const LocalClassPath *source, LocalClassPath **copy);
/** Copies the record of INSTANCEPATH. */
CIM_API int Clone_InstancePath(const InstancePath *source, InstancePath **copy);
/** Copies the record of LOCALINSTANCEPATH. */
CIM_API int Clone_LocalInstancePath(const LocalInstancePath *source, LocalInstancePath **copy);
/** Copies the record of KEYVALUE. */
CIM_API int Clone_KeyValue(const KeyValue *source, KeyValue **copy);
/** Copies KEYBINDING records: @p source and every node after it. */
CIM_API int Clone_KeyBinding(const KeyBinding *source, KeyBinding **copy);
/** Copies INSTANCENAME records: @p source and every node after it. */
CIM_API int Clone_InstanceName(const InstanceName *source, InstanceName **copy);
/** Copies VALUE.REFERENCE records: @p source and every node after it. */
CIM_API int Clone_ValueReference(const ValueReference *source, ValueReference **copy);
/** Copies VALUE records: @p source and every node after it. */
CIM_API int Clone_Value(const Value *source, Value **copy);
/** Copies VALUE.ARRAY records: @p source and every node after it. */
CIM_API int Clone_ValueArray(const ValueArray *source, ValueArray **copy);
/** Copies QUALIFIER records: @p source and every node after it. */
CIM_API int Clone_Qualifier(const Qualifier *source, Qualifier **copy);
/**
 * Copies PROPERTY records: @p source and every node after it.
 * A copied @c classOrigin holds its first character only.
 */
CIM_API int Clone_Property(const Property *source, Property **copy);
/**
 * Copies PROPERTY.ARRAY records: @p source and every node after it.
 * A copied @c classOrigin holds its first character only.
 */
CIM_API int Clone_PropertyArray(const PropertyArray *source, PropertyArray **copy);
/**
 * Copies PROPERTY.REFERENCE records: @p source and every node after it.
 * A copied @c classOrigin and @c referenceClass hold their
 * first character only, and @c name stays null in the copy.
 */
CIM_API int Clone_PropertyReference(const PropertyReference *source, PropertyReference **copy);
/** Copies INSTANCE records: @p source and every node after it. */
CIM_API int Clone_Instance(const Instance *source, Instance **copy);
/** Copies VALUE.NAMEDINSTANCE records: @p source and every node after it. */
CIM_API int Clone_NamedInstance(const NamedInstance *source, NamedInstance **copy);
/** @} */

/** @defgroup list_family Building lists
 *
 * Each AddToXList() appends one new node to the list whose first node is @p *list, or
 * makes it the first when @p *list is null. Texts are copied. Records become the
 * list's: the caller does not release them any more, whatever the result.
 *
 * Returns 0, or -1 when memory runs out or @p list is null; what was added so far stays
 * in the list.
 * @{ */

/** Appends a value. @p text must not be null. */
CIM_API int AddToValueList(Value **list, const char *text);

/**
 * Appends a property. The name is spelt as its callers spell it.
 * @param value  its value, or null for a null property; a writable text: "true" and
 *               "false" are replaced by "TRUE" and "FALSE" in place
 */
CIM_API int AddToProeprtyList(Property **list, const char *name, char *value, const char *type);

/** Appends an array property. @p name must not be null. */
CIM_API int AddToPropertyArrayList(PropertyArray **list, const char *name, ValueArray *valueArray,
                                   const char *type);

/** Appends an instance made of the given parts; each may be null. */
CIM_API int AddToInstanceList(Instance **list, ClassName *className,
                              PropertyReference *propertyReferences, PropertyArray *propertyArrays,
                              Property *properties);

/**
 * Appends an instance name. Without a class name that has a name the new node stays
 * empty, and @p keyBindings and @p className stay the caller's.
 * @param ignored  not used
 */
CIM_API int AddToInstanceNameList(InstanceName **list, KeyBinding *keyBindings,
                                  ClassName *className, const void *ignored);

/**
 * Appends a key with a value.
 * @param value      its value, or null: then @p valueType is not kept either
 * @param valueType  "string", "boolean" or "numeric", or null
 * @param ignored    not used
 */
CIM_API int AddToKeyBindingListRef(KeyBinding **list, const char *name, const char *value,
                                   const char *valueType, const void *ignored);

/**
 * Appends a key as AddToKeyBindingListRef() does and, when @p referenceKeys is given, a
 * reference to the instance that these keys name. Its namespace has two segments: "root"
 * and the end of @p namespaceText that begins with "interop", or else with "cimv2", or
 * else the empty text.
 * @param referenceClass  class of that instance; must not be null with @p referenceKeys
 * @param namespaceText   the namespace, or null
 * @return as the family; after a failure while the reference is built, it is released
 *         with its keys and the node stays without one
 */
CIM_API int AddToKeyBindingList(KeyBinding **list, const char *name, const char *value,
                                const char *valueType, const char *referenceClass,
                                const char *namespaceText, KeyBinding *referenceKeys);

/**
 * Appends a reference property.
 * @param keyBindings     keys of the instance referred to; null: the property is null
 * @param namespaces      namespace of that instance: only the first node is taken, the
 *                        caller's list is cut after it. Null: the reference stays empty
 *                        and the keys are released. Untouched without @p keyBindings
 * @param referenceClass  class of that instance; must not be null with @p name
 * @param name            name of the property, or null
 * @return as the family; after a failure what was built of the reference is released
 */
CIM_API int AddToPropertyReferenceList(PropertyReference **list, KeyBinding *keyBindings,
                                       Namespace *namespaces, const char *referenceClass,
                                       const char *name);
/** @} */

/** @defgroup writer_family Writing CIM-XML
 *
 * Each Gen_X() appends the CIM-XML of its record, or of each node of its list, to
 * @p *output: a malloc()ed text that it makes when null and moves as it grows; the caller
 * frees it. A null record leaves @p *output alone; so does a null @p output. Nothing is
 * indented or escaped. The bytes are those that the object managers of the field accept,
 * oddities included.
 *
 * Always returns 0. When memory runs out the text ends where it did.
 * @{ */

/** Writes a name in double quotes, and nothing around it. */
CIM_API int Gen_CIMName(char *text, char **output);
/** Writes the attribute TYPE with the blank before it. */
CIM_API int Gen_CIMType(char *text, char **output);
/** Writes the names in double quotes one after the other; callers put CLASSNAME around one. */
CIM_API int Gen_ClassName(ClassName *list, char **output);
/** Writes NAMESPACE elements. */
CIM_API int Gen_Namespace(Namespace *list, char **output);
/** Writes a LOCALNAMESPACEPATH element. */
CIM_API int Gen_LocalNamespacePath(LocalNamespacePath *record, char **output);
/** Writes a NAMESPACEPATH element. */
CIM_API int Gen_NamespacePath(NamespacePath *record, char **output);
/** Writes a LOCALCLASSPATH element; its CLASSNAME has a blank before "=". */
CIM_API int Gen_LocalClassPath(LocalClassPath *record, char **output);
/** Writes a CLASSPATH element. */
CIM_API int Gen_ClassPath(ClassPath *record, char **output);
/** Writes an INSTANCEPATH element. */
CIM_API int Gen_InstancePath(InstancePath *record, char **output);
/** Writes a LOCALINSTANCEPATH element. */
CIM_API int Gen_LocalInstancePath(LocalInstancePath *record, char **output);
/** Writes a KEYVALUE element. */
CIM_API int Gen_KeyValue(KeyValue *record, char **output);
/** Writes KEYBINDING elements. */
CIM_API int Gen_KeyBinding(KeyBinding *list, char **output);
/** Writes INSTANCENAME elements. */
CIM_API int Gen_InstanceName(InstanceName *list, char **output);
/** Writes VALUE.REFERENCE elements. */
CIM_API int Gen_ValueReference(ValueReference *list, char **output);
/** Writes VALUE.REFARRAY elements. */
CIM_API int Gen_ValueRefArray(ValueRefArray *list, char **output);
/** Writes VALUE.ARRAY elements. */
CIM_API int Gen_ValueArray(ValueArray *list, char **output);
/** Writes VALUE.NULL elements. */
CIM_API int Gen_ValueNull(ValueNull *list, char **output);
/**
 * Writes VALUE elements; a node with neither text nor embedded instance writes nothing.
 * An embedded instance (isCData 1) loses its two property lists as they are written: the
 * nodes are not released. Write a copy to keep the original.
 */
CIM_API int Gen_Value(Value *list, char **output);
/** Writes the attribute CLASSORIGIN with the blank before it. */
CIM_API int Gen_ClassOrigin(char *text, char **output);
/** Writes the attribute REFERENCECLASS with the blank before it. */
CIM_API int Gen_ReferenceClass(char *text, char **output);
/** Writes the flavor attributes, with "=" missing after QUALIFIERFLAVOR. */
CIM_API int Gen_QualifierFlavor(QualifierFlavor *record, char **output);
/** Writes a SCOPE element. */
CIM_API int Gen_Scope(Scope *record, char **output);
/** Writes QUALIFIER elements. */
CIM_API int Gen_Qualifier(Qualifier *list, char **output);
/** Writes QUALIFIER.DECLARATION elements. */
CIM_API int Gen_QualifierDecl(QualifierDecl *list, char **output);
/** Writes PROPERTY elements. */
CIM_API int Gen_Property(Property *list, char **output);
/** Writes PROPERTY.ARRAY elements. */
CIM_API int Gen_PropertyArray(PropertyArray *list, char **output);
/** Writes PROPERTY.REFERENCE elements. */
CIM_API int Gen_PropertyReference(PropertyReference *list, char **output);
/** Writes PARAMETER elements. */
CIM_API int Gen_Parameter(Parameter *list, char **output);
/** Writes PARAMETER.REFERENCE elements. */
CIM_API int Gen_ParameterReference(ParameterReference *list, char **output);
/** Writes PARAMETER.ARRAY elements. */
CIM_API int Gen_ParameterArray(ParameterArray *list, char **output);
/** Writes PARAMETER.REFARRAY elements and leaves each of them open: no closing tag. */
CIM_API int Gen_ParameterRefArray(ParameterRefArray *list, char **output);
/** Writes METHOD elements. */
CIM_API int Gen_Method(Method *list, char **output);
/** Writes CLASS elements. */
CIM_API int Gen_Class(Class *list, char **output);
/** Writes INSTANCE elements. */
CIM_API int Gen_Instance(Instance *list, char **output);
/** Writes VALUE.NAMEDINSTANCE elements. */
CIM_API int Gen_NamedInstance(NamedInstance *list, char **output);
/** Writes a RESPONSEDESTINATION element; its closing tag is in mixed case. */
CIM_API int Gen_ResponseDestination(ResponseDestination *record, char **output);
/**
 * Writes a whole document: XML declaration and CIM element. When there is no memory to
 * begin with, the process exits with status 0.
 */
CIM_API int Gen_CIM(CIM *record, char **output);
/** Writes a MESSAGE element; export messages are left out. */
CIM_API int Gen_Message(Message *record, char **output);
/** Writes SIMPLEREQ elements. */
CIM_API int Gen_SimpleReq(SimpleReq *list, char **output);
/** Writes a MULTIREQ element. */
CIM_API int Gen_MultiReq(MultiReq *record, char **output);
/** Writes SIMPLERSP elements; an acknowledgement is left out. */
CIM_API int Gen_SimpleRsp(SimpleRsp *list, char **output);
/** Writes a MULTIRSP element. */
CIM_API int Gen_MultiRsp(MultiRsp *record, char **output);
/** Writes an IMETHODCALL element. */
CIM_API int Gen_IMethodCall(IMethodCall *record, char **output);
/** Writes IPARAMVALUE elements. */
CIM_API int Gen_IParamValue(IParamValue *list, char **output);
/** Writes an IMETHODRESPONSE element. */
CIM_API int Gen_IMethodResponse(IMethodResponse *record, char **output);
/** Writes an IRETURNVALUE element; class names come out bare, without CLASSNAME. */
CIM_API int Gen_IReturnValue(IReturnValue *record, char **output);
/** Writes a METHODCALL element. */
CIM_API int Gen_MethodCall(MethodCall *record, char **output);
/** Writes PARAMVALUE elements. */
CIM_API int Gen_ParamValue(ParamValue *list, char **output);
/** Writes a METHODRESPONSE element. */
CIM_API int Gen_MethodResponse(MethodResponse *record, char **output);
/** Writes a RETURNVALUE element. */
CIM_API int Gen_ReturnValue(ReturnValue *record, char **output);
/** Writes an ERROR element. */
CIM_API int Gen_Error(Error *record, char **output);
/** Writes VALUE.OBJECT elements. */
CIM_API int Gen_Object(Object *list, char **output);
/** Writes VALUE.OBJECTWITHPATH elements. */
CIM_API int Gen_ObjectWithPath(ObjectWithPath *list, char **output);
/** Writes VALUE.OBJECTWITHLOCALPATH elements. */
CIM_API int Gen_ObjectWithLocalPath(ObjectWithLocalPath *list, char **output);
/** Writes VALUE.OBJECTPATH elements, the class path first. */
CIM_API int Gen_ObjectPath(ObjectPath *list, char **output);
/** Writes VALUE.NAMEDOBJECT elements. */
CIM_API int Gen_NamedObject(NamedObject *list, char **output);
/** Writes a DECLARATION element. */
CIM_API int Gen_Declaration(Declaration *record, char **output);
/** Writes a DECLGROUP element. */
CIM_API int Gen_DeclGroup(DeclGroup *record, char **output);
/** Writes a DECLGROUP.WITHNAME element. */
CIM_API int Gen_DeclGroupWithName(DeclGroupWithName *record, char **output);
/** Writes a DECLGROUP.WITHPATH element. */
CIM_API int Gen_DeclGroupWithPath(DeclGroupWithPath *record, char **output);
/** @} */

/** @defgroup http_family HTTP
 * @{ */

/**
 * Appends the header block of a request to the text in @p buffer, cut to fit: request
 * line, Content-Type, Content-Length and Authorization, each ended by CR LF.
 *
 * @param host           not used
 * @param contentLength  number for Content-Length
 * @param buffer         zero-filled, or a text to continue
 * @param bufferSize     bytes at @p buffer
 * @param user           user name; null is the empty name
 * @param password       password, or null. User, colon and password are cut at 12270 bytes
 * @return the length of the text in @p buffer afterwards; 0 when it is null
 */
CIM_API int CIMC_CreateStdHttpHeaders(const char *host, int contentLength, char *buffer,
                                      int bufferSize, const char *user, const char *password);

/**
 * Writes the base64 form of a text.
 * @param out      receives it, terminated; needs room for 4 * ceil(length / 3) + 1 bytes
 * @param in       the text
 * @param outSize  characters after which no further one is written; padding and
 *                 terminator are not bounded by it
 */
CIM_API void Encode64(char *out, const char *in, int outSize);

/**
 * Writes the bytes that a base64 text stands for, terminated. "+" and "/" are not
 * decoded correctly, and no character is refused: callers rely on the table as it is.
 * @param out      receives them; at least 15 bytes
 * @param in       base64 text; ends at "=" or its terminator
 * @param outSize  bytes at @p out
 * @return 0; -1 when @p out is null or @p outSize too small: it then holds "String too big"
 */
CIM_API int Decode64(char *out, const char *in, int outSize);

/**
 * Connects to an object manager.
 * @param host  dotted-decimal IPv4 address; null fails
 * @param port  TCP port; its low 16 bits count
 * @return a connected socket, which the caller closes, or -1
 */
CIM_API int CIMC_TcpConnect(const char *host, uint32_t port);

/**
 * Sends one request and receives its answer, on a connection of its own. The socket is
 * closed and no SIGPIPE is raised, whatever happens.
 *
 * The head of the answer and the beginning of its body must arrive in the first read, as
 * object managers send them; a peer that stays silent is waited for without limit. Bodies of
 * up to 512 and of exactly 2048 bytes are taken from the first read, of at most 2047 bytes,
 * alone. A connection that ends early gives the body as far as it came, and a line on
 * standard error.
 *
 * @param request   CIM-XML text
 * @param bodyOut   receives the answer from "<?xml" on, at most as many bytes as its
 *                  Content-Length says, which the caller frees. After -1 it may hold an
 *                  empty text, which the caller frees, too
 * @param host      dotted-decimal IPv4 address
 * @param port      TCP port
 * @param user      user name
 * @param password  password, or null
 * @param timeout   milliseconds. Without effect: the system refuses the option as it is
 *                  set, and reads wait without limit
 * @return 0; 401 when user or password were refused (@p *bodyOut is untouched); -1 for
 *         every other failure, such as a null argument but @p user and @p password, no
 *         Content-Length or one below 0 or above 1 GiB
 */
CIM_API int CIMSendRequest(const char *request, char **bodyOut, const char *host, uint32_t port,
                           const char *user, const char *password, uint32_t timeout);
/** @} */

/** @defgroup reader_family Reading CIM-XML
 *
 * parseXML() is all that applications need. The rest is the machinery under it: a walk
 * over the document calls one builder per element; a process-wide stack gives each
 * builder the record of its parent element.
 * @{ */

struct XmlNode; /**< a node of the XML library's document */

/** One open element and the record that was made for it. */
struct StackEntry {
  void *address;  /**< the record */
  char name[256]; /**< element name; empty once its last child element has been seen */
};

/** The element stack: entries 0 to #top. A push beyond the last entry is dropped. */
extern CIM_API StackEntry map[4096];

/** Index of the top entry of #map; -1: empty. */
extern CIM_API int32_t top;

/** The CIM record of the last document that had one; null once it has been released. */
extern CIM_API CIM *returnAddress;

/**
 * Reads a document.
 *
 * Elements that have no record are announced on standard output and passed over. A record
 * whose parent element has no place for it belongs to the reader, which releases it when the
 * next document begins.
 *
 * The fields of an IParamValue are borrowed here, too: Free_CIM() leaves them, and who reads
 * requests releases them first.
 * @param text  holds the document, possibly behind other text such as HTTP headers: it
 *              begins at the first "<?xml", or else at the first "<CIM "
 * @return the tree, to be released with Free_CIM(). Null when the text holds neither
 *         beginning, is not well-formed (standard output says why) or is null, or memory
 *         runs out: #returnAddress is then as before. A document without a CIM element, or
 *         with nothing in it, gives the tree of the document before it, null when that has
 *         been released
 */
CIM_API CIM *parseXML(const char *text);

/**
 * Walks a parsed document and builds its records on the element stack, which it neither
 * clears before nor after. The tree that #returnAddress then names is the caller's; when
 * memory runs out, #returnAddress is as before.
 * @param node  where the walk begins; may be null
 * @return null
 */
CIM_API void *recursiveParseCIM(const struct XmlNode *node);

/** Pushes an entry, unless its record is on the stack already. @return 0 */
CIM_API int Push(StackEntry entry);

/**
 * Finds the nearest entry of that name and discards every entry above it: all of them
 * when there is none.
 * @return its record, which stays on the stack; null when there is none
 */
CIM_API void *Pop(const char *name);

/**
 * Takes the name from the nearest entry of that name, so that it is not found any more.
 * Sets #returnAddress when it passes the entry "CIM": that tree is then the caller's.
 * @return 0
 */
CIM_API int removeParent(const char *name);

/** Hands one trace line per entry to EmptyPrintf(). @return 0 */
CIM_API int printStack(void);

/**
 * Reads an embedded instance.
 * @param text      an INSTANCE document
 * @param instance  receives the instance, to be released with Free_Instance(). A
 *                  property gives one record for its NAME and one for its TYPE, each
 *                  with the value; the value of an array arrives empty
 * @return 0; -1 when an argument is null, the text is not well-formed or without INSTANCE,
 *         or memory runs out: @p *instance is then untouched
 */
CIM_API int ParseCDataContent(const char *text, Instance **instance);

/** @} */

/** @defgroup builder_family Building records from elements
 *
 * Each CreateX() makes a record from the element @p node, links it into @p parent and
 * fills @p *entry for the stack: with the new record and the element's name when the
 * element has a child, otherwise with @p parent and the parent element's name.
 *
 * @p parent is the record of the element above @p node, or null. A record that cannot be
 * linked, because @p parent is null or has no place for it, belongs to the caller when the
 * entry names it; otherwise to the reader, which releases it when the next document begins.
 * A record in the place of a single child is released for the new one. When memory runs out
 * a record is incomplete, or the entry names none. Returns @p entry.
 * @{ */

/**
 * Builds a Value from VALUE: a text, or the embedded instance of a CDATA section. An empty
 * element gives the empty text.
 */
CIM_API StackEntry *CreateValue(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a ValueArray from VALUE.ARRAY. */
CIM_API StackEntry *CreateValueArray(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a ValueReference from VALUE.REFERENCE. */
CIM_API StackEntry *CreateValueReference(StackEntry *entry, const struct XmlNode *node,
                                         void *parent);
/** Builds a ValueRefArray from VALUE.REFARRAY. */
CIM_API StackEntry *CreateValueRefArray(StackEntry *entry, const struct XmlNode *node,
                                        void *parent);
/** Builds a ValueNull from VALUE.NULL. The walk never calls it. */
CIM_API StackEntry *CreateValueNull(StackEntry *entry, const struct XmlNode *node, void *parent);
/**
 * Builds a KeyValue from KEYVALUE. Without character data its text is the value of the
 * element's last attribute.
 */
CIM_API StackEntry *CreateKeyValue(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a KeyBinding from KEYBINDING. */
CIM_API StackEntry *CreateKeyBinding(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds an InstanceName from INSTANCENAME. */
CIM_API StackEntry *CreateInstanceName(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a ClassName from CLASSNAME. */
CIM_API StackEntry *CreateClassName(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a Namespace from NAMESPACE. */
CIM_API StackEntry *CreateNamespace(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Sets the host text of the parent NAMESPACEPATH from HOST. */
CIM_API StackEntry *CreateHost(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a LocalNamespacePath from LOCALNAMESPACEPATH. */
CIM_API StackEntry *CreateLocalNamespacePath(StackEntry *entry, const struct XmlNode *node,
                                             void *parent);
/** Builds a NamespacePath from NAMESPACEPATH. */
CIM_API StackEntry *CreateNamespacePath(StackEntry *entry, const struct XmlNode *node,
                                        void *parent);
/** Builds a ClassPath from CLASSPATH. */
CIM_API StackEntry *CreateClassPath(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a LocalClassPath from LOCALCLASSPATH. */
CIM_API StackEntry *CreateLocalClassPath(StackEntry *entry, const struct XmlNode *node,
                                         void *parent);
/** Builds an InstancePath from INSTANCEPATH. */
CIM_API StackEntry *CreateInstancePath(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a LocalInstancePath from LOCALINSTANCEPATH. */
CIM_API StackEntry *CreateLocalInstancePath(StackEntry *entry, const struct XmlNode *node,
                                            void *parent);
/** Builds an ObjectPath from OBJECTPATH. */
CIM_API StackEntry *CreateObjectPath(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a Qualifier from QUALIFIER. */
CIM_API StackEntry *CreateQualifier(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a QualifierDecl from QUALIFIER.DECLARATION. */
CIM_API StackEntry *CreateQualifierDecl(StackEntry *entry, const struct XmlNode *node,
                                        void *parent);
/** Builds a Property from PROPERTY. */
CIM_API StackEntry *CreateProperty(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a PropertyArray from PROPERTY.ARRAY. */
CIM_API StackEntry *CreatePropertyArray(StackEntry *entry, const struct XmlNode *node,
                                        void *parent);
/** Builds a PropertyReference from PROPERTY.REFERENCE. */
CIM_API StackEntry *CreatePropertyReference(StackEntry *entry, const struct XmlNode *node,
                                            void *parent);
/** Builds a Method from METHOD. */
CIM_API StackEntry *CreateMethod(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a Parameter from PARAMETER. */
CIM_API StackEntry *CreateParameter(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a ParameterReference from PARAMETER.REFERENCE. */
CIM_API StackEntry *CreateParameterReference(StackEntry *entry, const struct XmlNode *node,
                                             void *parent);
/** Builds a ParameterArray from PARAMETER.ARRAY. */
CIM_API StackEntry *CreateParameterArray(StackEntry *entry, const struct XmlNode *node,
                                         void *parent);
/** Builds a ParameterRefArray from PARAMETER.REFARRAY. */
CIM_API StackEntry *CreateParameterRefArray(StackEntry *entry, const struct XmlNode *node,
                                            void *parent);
/** Builds a Class from CLASS. */
CIM_API StackEntry *CreateClass(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds an Instance from INSTANCE. */
CIM_API StackEntry *CreateInstance(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a NamedInstance from VALUE.NAMEDINSTANCE. */
CIM_API StackEntry *CreateNamedInstance(StackEntry *entry, const struct XmlNode *node,
                                        void *parent);
/** Builds an Object from VALUE.OBJECT. */
CIM_API StackEntry *CreateObject(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds an ObjectWithPath from VALUE.OBJECTWITHPATH. */
CIM_API StackEntry *CreateObjectWithPath(StackEntry *entry, const struct XmlNode *node,
                                         void *parent);
/** Builds an ObjectWithLocalPath from VALUE.OBJECTWITHLOCALPATH. */
CIM_API StackEntry *CreateObjectWithLocalPath(StackEntry *entry, const struct XmlNode *node,
                                              void *parent);
/** Builds a NamedObject from VALUE.NAMEDOBJECT. */
CIM_API StackEntry *CreateNamedObject(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a CIM from CIM. The entry always names the new record, child or not. */
CIM_API StackEntry *CreateCIM(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a Message from MESSAGE. */
CIM_API StackEntry *CreateMessage(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a SimpleReq from SIMPLEREQ. */
CIM_API StackEntry *CreateSimpleReq(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a MultiReq from MULTIREQ. */
CIM_API StackEntry *CreateMultiReq(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a SimpleRsp from SIMPLERSP. */
CIM_API StackEntry *CreateSimpleRsp(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a MultiRsp from MULTIRSP. */
CIM_API StackEntry *CreateMultiRsp(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds an IMethodCall from IMETHODCALL. */
CIM_API StackEntry *CreateIMethodCall(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds an IMethodResponse from IMETHODRESPONSE. */
CIM_API StackEntry *CreateIMethodResponse(StackEntry *entry, const struct XmlNode *node,
                                          void *parent);
/** Builds a MethodCall from METHODCALL. */
CIM_API StackEntry *CreateMethodCall(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a MethodResponse from METHODRESPONSE. */
CIM_API StackEntry *CreateMethodResponse(StackEntry *entry, const struct XmlNode *node,
                                         void *parent);
/** Builds a ReturnValue from RETURNVALUE. */
CIM_API StackEntry *CreateReturnValue(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds an Error from ERROR. */
CIM_API StackEntry *CreateError(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a ResponseDestination from RESPONSEDESTINATION. */
CIM_API StackEntry *CreateResponseDestination(StackEntry *entry, const struct XmlNode *node,
                                              void *parent);
/** Builds a SimpleReqAck from SIMPLEREQACK. */
CIM_API StackEntry *CreateSimpleReqAck(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds an IParamValue from IPARAMVALUE. */
CIM_API StackEntry *CreateIParamValue(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds an IReturnValue from IRETURNVALUE. */
CIM_API StackEntry *CreateIReturnValue(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a ParamValue from PARAMVALUE. */
CIM_API StackEntry *CreateParamValue(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds an ExpParamValue from EXPPARAMVALUE. */
CIM_API StackEntry *CreateExpParamValue(StackEntry *entry, const struct XmlNode *node,
                                        void *parent);
/** Builds an ExpMethodCall from EXPMETHODCALL. */
CIM_API StackEntry *CreateExpMethodCall(StackEntry *entry, const struct XmlNode *node,
                                        void *parent);
/** Builds an ExpMethodResponse from EXPMETHODRESPONSE. */
CIM_API StackEntry *CreateExpMethodResponse(StackEntry *entry, const struct XmlNode *node,
                                            void *parent);
/** Builds a SimpleExpReq from SIMPLEEXPREQ. */
CIM_API StackEntry *CreateSimpleExpReq(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a MultiExpReq from MULTIEXPREQ. */
CIM_API StackEntry *CreateMultiExpReq(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a SimpleExpRsp from SIMPLEEXPRSP. */
CIM_API StackEntry *CreateSimpleExpRsp(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a MultiExpRsp from MULTIEXPRSP. */
CIM_API StackEntry *CreateMultiExpRsp(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a Declaration from DECLARATION. */
CIM_API StackEntry *CreateDeclaration(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a DeclGroup from DECLGROUP. */
CIM_API StackEntry *CreateDeclGroup(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a DeclGroupWithName from DECLGROUP.WITHNAME. */
CIM_API StackEntry *CreateDeclGroupWithName(StackEntry *entry, const struct XmlNode *node,
                                            void *parent);
/** Builds a DeclGroupWithPath from DECLGROUP.WITHPATH. */
CIM_API StackEntry *CreateDeclGroupWithPath(StackEntry *entry, const struct XmlNode *node,
                                            void *parent);
/** Builds a Table from TABLE. */
CIM_API StackEntry *CreateTable(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a TableRowDecl from TABLEROW.DECLARATION. */
CIM_API StackEntry *CreateTableRowDecl(StackEntry *entry, const struct XmlNode *node, void *parent);
/** Builds a TableCellDecl from the declaration of a table cell. The walk never calls it. */
CIM_API StackEntry *CreateTableCellDecl(StackEntry *entry, const struct XmlNode *node,
                                        void *parent);
/** Builds a TableCellReference from the declaration of a reference cell. The walk never calls it.
 */
CIM_API StackEntry *CreateTableCellReference(StackEntry *entry, const struct XmlNode *node,
                                             void *parent);
/** Builds a TableRow from TABLEROW. */
CIM_API StackEntry *CreateTableRow(StackEntry *entry, const struct XmlNode *node, void *parent);
/** @} */

/** @defgroup operation_family Operations
 *
 * Common to all:
 *
 *   handle          from client_Configuration(); null gives null (-1 from invokeMethod())
 *   records given   borrowed for the call; the caller keeps and releases them
 *   flags           0 sends FALSE, 1 sends TRUE, 2 and more leave the choice to the
 *                   object manager
 *   propertyList    not used
 *   errorOut        must not be null; receives an Error, to be released with
 *                   Free_Error(), when the object manager reports one or refuses user or
 *                   password (code "401"). Otherwise left alone: clear it before the call
 *   result          the caller releases it with the Free_ function of its type; null
 *                   without an Error when nothing was found, nothing came back or the
 *                   answer was of another shape
 *
 * These functions route a call by the handle's back end.
 * @{ */

/** Reads a class definition. Always over CIM-XML, whatever the handle's back end. */
CIM_API Class *CIM_GetClass(struct client_Configuration *handle, ClassName *className,
                            uint32_t localOnly, uint32_t includeQualifiers,
                            uint32_t includeClassOrigin, char **propertyList, Error **errorOut);

/**
 * Reads the definitions of the subclasses of a class; without a class name, of the root
 * classes. CIM-XML only: null on a handle of the local broker.
 */
CIM_API Class *CIM_EnumerateClasses(struct client_Configuration *handle, ClassName *className,
                                    uint32_t deepInheritance, uint32_t localOnly,
                                    uint32_t includeQualifiers, uint32_t includeClassOrigin,
                                    Error **errorOut);

/**
 * Reads the names of the subclasses of a class; without a class name, of the root
 * classes. CIM-XML only: null on a handle of the local broker.
 */
CIM_API ClassName *EnumerateClassNames(struct client_Configuration *handle, ClassName *className,
                                       uint32_t deepInheritance, Error **errorOut);

/** Reads the instances of a class and of its subclasses, with their names. */
CIM_API NamedInstance *EnumerateInstances(struct client_Configuration *handle, ClassName *className,
                                          uint32_t localOnly, uint32_t deepInheritance,
                                          uint32_t includeQualifiers, uint32_t includeClassOrigin,
                                          char **propertyList, Error **errorOut);

/** Reads the names of the instances of a class and of its subclasses. */
CIM_API InstanceName *EnumerateInstanceNames(struct client_Configuration *handle,
                                             ClassName *className, Error **errorOut);

/**
 * Reads one instance. Of a list of names only the first is sent: its @c next is null
 * during the call and, over CIM-XML, stays null when no answer came or user or password were
 * refused. Keep the pointer to the rest of such a list.
 */
CIM_API Instance *GetInstance(struct client_Configuration *handle, InstanceName *instanceName,
                              uint32_t localOnly, uint32_t includeQualifiers,
                              uint32_t includeClassOrigin, char **propertyList, Error **errorOut);

/**
 * Reads the objects associated with an object.
 * @param objectName   the object; null leaves it out of the request
 * @param assocClass   only through associations of this class; null: any
 * @param resultClass  only objects of this class; null: any
 * @param role         only where the object plays this role; null: any
 * @param resultRole   only objects that play this role; null: any
 */
CIM_API ObjectWithPath *Associators(struct client_Configuration *handle, ObjectName *objectName,
                                    ClassName *assocClass, ClassName *resultClass, const char *role,
                                    const char *resultRole, uint32_t includeQualifiers,
                                    uint32_t includeClassOrigin, char **propertyList,
                                    Error **errorOut);

/**
 * Reads the paths of the objects associated with an object; arguments as in
 * Associators(). Brokers of the field answer with one path per object.
 */
CIM_API ObjectPath *AssociatorNames(struct client_Configuration *handle, ObjectName *objectName,
                                    ClassName *assocClass, ClassName *resultClass, const char *role,
                                    const char *resultRole, Error **errorOut);

/**
 * Reads the associations that refer to an object.
 * @param objectName   the object; null leaves it out of the request
 * @param resultClass  only associations of this class; null: any
 * @param role         only where the object plays this role; null: any
 */
CIM_API ObjectWithPath *References(struct client_Configuration *handle, ObjectName *objectName,
                                   ClassName *resultClass, const char *role,
                                   uint32_t includeQualifiers, uint32_t includeClassOrigin,
                                   char **propertyList, Error **errorOut);

/**
 * Reads the names of the associations that refer to an object; arguments as in
 * References(). Over CIM-XML only an answer made of instance names is read: they come as
 * the list in the instance path of one ObjectPath. An answer made of object paths, as
 * some brokers send it, gives null.
 */
CIM_API ObjectPath *ReferenceNames(struct client_Configuration *handle, ObjectName *objectName,
                                   ClassName *resultClass, const char *role, Error **errorOut);

/** Creates an instance. @return the name of the new instance */
CIM_API InstanceName *CIM_CreateInstance(struct client_Configuration *handle, Instance *newInstance,
                                         Error **errorOut);

/**
 * Changes an instance.
 * @return 0, also after an error of the object manager or when nothing came back: success
 *         is judged by the error slot; not 0 after code "401". On a handle of an unknown
 *         back end, @p modifiedInstance itself
 */
CIM_API intptr_t ModifyInstance(struct client_Configuration *handle,
                                NamedInstance *modifiedInstance, uint32_t includeQualifiers,
                                char **propertyList, Error **errorOut);

/**
 * Deletes an instance.
 * @return as ModifyInstance(); on a handle of an unknown back end, @p instanceName itself
 */
CIM_API intptr_t DeleteInstance(struct client_Configuration *handle, InstanceName *instanceName,
                                Error **errorOut);

/**
 * Invokes a method.
 * @param instanceName  the instance; null leaves it out of the request
 * @param methodName    the method; must not be null
 * @param inParams      its input parameters, or null
 * @param outParams     receives its output parameters, to be released with
 *                      Free_ParamValue(); left alone when none came
 * @return the method's own return value as a number; -1 for a null handle, when nothing
 *         came back, and after an error. Over CIM-XML a refused user or password gives
 *         -1 without an Error
 */
CIM_API int invokeMethod(struct client_Configuration *handle, InstanceName *instanceName,
                         const char *methodName, ParamValue *inParams, ParamValue **outParams,
                         Error **errorOut);

/**
 * Runs a query.
 * @param queryLanguage  such as "WQL"; null leaves it out of the request
 * @param query          the query; null leaves it out of the request
 */
CIM_API ObjectWithPath *ExecQuery(struct client_Configuration *handle, const char *queryLanguage,
                                  const char *query, Error **errorOut);
/** @} */

/** @defgroup xml_family Operations over CIM-XML
 *
 * What the operations above call on a handle of the CIM-XML back end. Arguments, errors
 * and results are theirs.
 * @{ */

/** CIM_GetClass() over CIM-XML. */
CIM_API Class *CIMC_XML_GetClass(struct client_Configuration *handle, ClassName *className,
                                 uint32_t localOnly, uint32_t includeQualifiers,
                                 uint32_t includeClassOrigin, char **propertyList,
                                 Error **errorOut);

/** CIM_EnumerateClasses() over CIM-XML. */
CIM_API Class *CIMC_XML_EnumerateClasses(struct client_Configuration *handle, ClassName *className,
                                         uint32_t deepInheritance, uint32_t localOnly,
                                         uint32_t includeQualifiers, uint32_t includeClassOrigin,
                                         Error **errorOut);

/** EnumerateClassNames() over CIM-XML. */
CIM_API ClassName *CIMC_XML_EnumerateClassNames(struct client_Configuration *handle,
                                                ClassName *className, uint32_t deepInheritance,
                                                Error **errorOut);

/** EnumerateInstances() over CIM-XML. */
CIM_API NamedInstance *CIMC_XML_EnumerateInstances(struct client_Configuration *handle,
                                                   ClassName *className, uint32_t localOnly,
                                                   uint32_t deepInheritance,
                                                   uint32_t includeQualifiers,
                                                   uint32_t includeClassOrigin, char **propertyList,
                                                   Error **errorOut);

/** EnumerateInstanceNames() over CIM-XML. */
CIM_API InstanceName *CIMC_XML_EnumerateInstanceNames(struct client_Configuration *handle,
                                                      ClassName *className, Error **errorOut);

/** GetInstance() over CIM-XML. */
CIM_API Instance *CIMC_XML_GetInstance(struct client_Configuration *handle,
                                       InstanceName *instanceName, uint32_t localOnly,
                                       uint32_t includeQualifiers, uint32_t includeClassOrigin,
                                       char **propertyList, Error **errorOut);

/** Associators() over CIM-XML. */
CIM_API ObjectWithPath *CIMC_XML_Associators(struct client_Configuration *handle,
                                             ObjectName *objectName, ClassName *assocClass,
                                             ClassName *resultClass, const char *role,
                                             const char *resultRole, uint32_t includeQualifiers,
                                             uint32_t includeClassOrigin, char **propertyList,
                                             Error **errorOut);

/** AssociatorNames() over CIM-XML. */
CIM_API ObjectPath *CIMC_XML_AssociatorNames(struct client_Configuration *handle,
                                             ObjectName *objectName, ClassName *assocClass,
                                             ClassName *resultClass, const char *role,
                                             const char *resultRole, Error **errorOut);

/** References() over CIM-XML. */
CIM_API ObjectWithPath *CIMC_XML_References(struct client_Configuration *handle,
                                            ObjectName *objectName, ClassName *resultClass,
                                            const char *role, uint32_t includeQualifiers,
                                            uint32_t includeClassOrigin, char **propertyList,
                                            Error **errorOut);

/** ReferenceNames() over CIM-XML. */
CIM_API ObjectPath *CIMC_XML_ReferenceNames(struct client_Configuration *handle,
                                            ObjectName *objectName, ClassName *resultClass,
                                            const char *role, Error **errorOut);

/** CIM_CreateInstance() over CIM-XML. */
CIM_API InstanceName *CIMC_XML_CreateInstance(struct client_Configuration *handle,
                                              Instance *newInstance, Error **errorOut);

/** ModifyInstance() over CIM-XML. */
CIM_API intptr_t CIMC_XML_ModifyInstance(struct client_Configuration *handle,
                                         NamedInstance *modifiedInstance,
                                         uint32_t includeQualifiers, char **propertyList,
                                         Error **errorOut);

/** DeleteInstance() over CIM-XML. */
CIM_API intptr_t CIMC_XML_DeleteInstance(struct client_Configuration *handle,
                                         InstanceName *instanceName, Error **errorOut);

/** invokeMethod() over CIM-XML. */
CIM_API int CIMC_XML_invokeMethod(struct client_Configuration *handle, InstanceName *instanceName,
                                  const char *methodName, ParamValue *inParams,
                                  ParamValue **outParams, Error **errorOut);

/** ExecQuery() over CIM-XML. */
CIM_API ObjectWithPath *CIMC_XML_ExecQuery(struct client_Configuration *handle,
                                           const char *queryLanguage, const char *query,
                                           Error **errorOut);

/**
 * Releases the parameters of a request: nodes, names and the values among them; the
 * other parameters are borrowed and stay. Null is allowed. @return 0
 */
CIM_API int Free_IParamValue_New(IParamValue *list);

/**
 * Releases the envelope of a document: CIM, MESSAGE, SIMPLERSP, SIMPLEREQ and the calls and
 * responses in them, but neither parameters nor what was returned nor the error, which
 * stay with whoever took them. Null is allowed. @return null
 */
CIM_API CIM *Free_Header(CIM *root);

/** @} */

/** @defgroup local_family Operations of the local broker
 *
 * What the operations do on a handle of the local broker. The broker's client library,
 * libcimcClientSfcbLocal.so, is loaded on first use and kept; each operation makes an
 * environment and a connection of its own and releases every broker object that it
 * obtained.
 *
 *   resultOut  written only when there is a result; the caller releases it with the
 *              Free_ function of its type
 *   errorOut   receives an Error, to be released with Free_Error(), when the broker
 *              reports one with a text
 *   result     0; -1 when the library cannot be loaded (standard error says why), the
 *              connection fails (standard output says so), an argument is missing, or an
 *              answer cannot be read; an enumeration gives 0 for such an answer. An error
 *              of the broker gives 0, too
 *
 * Hosts, flags and property lists that are named "ignored" are not passed to the broker.
 * @{ */

/** EnumerateInstances(): @p deepInheritance 1 asks for the properties of subclasses. */
CIM_API int CIMC_EnumInstances(NamedInstance **resultOut, const char *className,
                               const char *ignoredHost, const char *user, const char *password,
                               uint32_t deepInheritance, Error **errorOut, const char *nameSpace);

/** EnumerateInstanceNames(). */
CIM_API int CIMC_EnumInstanceNames(InstanceName **resultOut, const char *className,
                                   const char *ignoredHost, const char *user, const char *password,
                                   Error **errorOut, const char *nameSpace);

/** GetInstance(): a name without keys is not asked for. */
CIM_API int CIMC_GetInstance(Instance **resultOut, const InstanceName *instanceName,
                             const char *ignoredHost, const char *user, const char *password,
                             Error **errorOut, const char *nameSpace);

/** Reads the name and the properties of a class. No operation above leads here. */
CIM_API int CIMC_GetClass(Class **resultOut, const ClassName *className, uint32_t ignoredLocalOnly,
                          uint32_t ignoredIncludeQualifiers, uint32_t ignoredIncludeClassOrigin,
                          char **ignoredPropertyList, const char *user, const char *password,
                          const char *nameSpace, Error **errorOut);

/** Associators(). */
CIM_API int CIMC_Associators(ObjectWithPath **resultOut, const InstanceName *instanceName,
                             const char *assocClass, const char *resultClass, const char *role,
                             const char *resultRole, const char *ignoredHost, const char *user,
                             const char *password, Error **errorOut, const char *nameSpace);

/** AssociatorNames(): @p className is the class of the path, @p instanceName gives its keys. */
CIM_API int CIMC_AssociatorNames(ObjectPath **resultOut, const InstanceName *instanceName,
                                 const char *className, const char *assocClass,
                                 const char *resultClass, const char *role, const char *resultRole,
                                 const char *ignoredHost, const char *user, const char *password,
                                 Error **errorOut, const char *nameSpace);

/** References(). @return 0, whatever happened */
CIM_API int CIMC_References(ObjectWithPath **resultOut, const ObjectName *objectName,
                            const ClassName *resultClass, const char *role,
                            uint32_t ignoredIncludeQualifiers, uint32_t ignoredIncludeClassOrigin,
                            char **ignoredPropertyList, const char *nameSpace, const char *user,
                            const char *password, Error **errorOut);

/** ReferenceNames(). */
CIM_API int CIMC_ReferenceNames(ObjectPath **resultOut, const ObjectName *objectName,
                                const ClassName *resultClass, const char *role,
                                const char *nameSpace, const char *user, const char *password,
                                Error **errorOut);

/** CIM_CreateInstance(). */
CIM_API int CIMC_CreateInstance(InstanceName **resultOut, const Instance *newInstance,
                                const char *nameSpace, const char *user, const char *password,
                                Error **errorOut);

/** ModifyInstance(). References are not sent. */
CIM_API int CIMC_ModifyInstance(const NamedInstance *modifiedInstance, const void *ignored,
                                const char *nameSpace, const char *user, const char *password,
                                Error **errorOut);

/** DeleteInstance(). @return 0 only when the instance was deleted, otherwise -1 */
CIM_API int CIMC_DeleteInstance(const InstanceName *instanceName, const char *nameSpace,
                                const char *user, const char *password, Error **errorOut);

/**
 * invokeMethod().
 * @return the method's return value, 32- and 64-bit ones cut to the limits of an int32_t and 0
 *         for what is no number; the broker's status code after an error with a text; 2 when
 *         the method was not called
 */
CIM_API int CIMC_InvokeMethod(const InstanceName *instanceName, const char *methodName,
                              const char *nameSpace, const ParamValue *inParams,
                              ParamValue **outParams, const char *user, const char *password,
                              Error **errorOut);

/** ExecQuery(), without user and password. */
CIM_API int CIMC_ExecQuery(ObjectWithPath **resultOut, const char *nameSpace, const char *query,
                           const char *queryLanguage, Error **errorOut);

/** @} */

/** @defgroup broker_family Broker objects and records
 *
 * The pieces of which the local operations are made. Broker objects are those of the
 * CIMC interface of sblim-sfcc, handed in as untyped pointers: @c env a CIMCEnv, @c path a
 * CIMCObjectPath, @c instance a CIMCInstance, @c args a CIMCArgs, @c array a CIMCArray,
 * @c enumeration a CIMCEnumeration, @c data a CIMCData, @c value a CIMCValue. None is
 * released here, unless a function says so.
 *
 * Each returns 0, or -1 when a part is missing, an answer cannot be read or memory runs
 * out. What a function stores through its last arguments belongs to the caller; after -1
 * nothing is stored, but a record handed in may be partly filled.
 * @{ */

/**
 * Makes an environment of the broker's client library, which is opened once per process.
 * @param id       names the library and its factory; "SfcbLocal"
 * @param options  passed to the factory; 0
 * @param rc       receives 0; 1 when the library cannot be loaded, 2 when it has no factory
 * @param msg      receives null, or a text of the failure, which the caller frees
 * @return the environment, or null
 */
CIM_API void *getCIMCEnv(const char *id, uint32_t options, int *rc, char **msg);

/** Switches the broker library's trace on as the environment variable SFCB_TRACE says: a
 * decimal mask. Nothing happens without it, or when the library lacks one of its two words. */
CIM_API void setSFCBTrace(void *libraryHandle);

/** Logs that an operation begins (@p entering not 0) or ends. */
CIM_API void cimc_debug(int entering, const char *functionName);

/** Makes an Error of a status code and a message, a CIMCString. */
CIM_API int log_err_msgs(int code, const void *message, Error **errorOut);

/** @return the code of a CIM type name that can be sent to the broker; 0 for others, null too */
CIM_API int cimc_getCMPIType(const char *name);

/** @return the CIM type name of a code's low 16 bits; "" for codes that have none: real
 *  types, and arrays but those of uint16, sint8 and string */
CIM_API const char *CIMC_getDataType(uint32_t code);

/** Stores a value as a new text, or null for what has none: arrays, instances, char16.
 * Booleans are "true" and "false". */
CIM_API int value2Chars(uint32_t code, const void *value, char **textOut);

/** Adds keys to a path. A reference is also used for the keys after it, until the next
 * reference. */
CIM_API int CIMC_AddKeyValues(const KeyBinding *keyBindings, void *path, const char *nameSpace,
                              void *env);

/** Adds a parameter with a text. The object made for a string is not released. */
CIM_API int CIMC_CreatePropertyArguments(const ParamValue *parameter, void *args, void *env);

/** Adds a parameter with an array, always as code 8192. */
CIM_API int CIMC_CreatePropertyArrayArguments(const ParamValue *parameter, const char *nameSpace,
                                              void *args, void *env);

/** Adds a parameter that is a reference. */
CIM_API int CIMC_CreateValueRefArguments(const ParamValue *parameter, const char *nameSpace,
                                         void *args, void *env);

/** Adds a parameter with an embedded instance. */
CIM_API int CIMC_CreateCDataArgument(const ParamValue *parameter, const char *nameSpace, void *args,
                                     void *env);

/** Adds every parameter of a method call. */
CIM_API int add_args_to_invoke_req(const ParamValue *parameters, const char *nameSpace, void *args,
                                   void *env);

/** Sets a property. Types that cannot be sent are passed over. */
CIM_API int add_properties_to_req(const Property *property, void *instance, void *env);

/** Sets an array property of integers or strings; other types are passed over. */
CIM_API int _add_property_array_to_req(const PropertyArray *property, void *instance, void *env);

/** Sets the properties and arrays of an embedded instance. Always 0. */
CIM_API int CDATASectionHandler(const Instance *record, void *instance, void *env);

/** Sets the properties and arrays of a modified instance. Always 0. */
CIM_API int add_value_to_mi_req(const NamedInstance *namedInstance, void *instance, void *env);

/** Sets a property of a new instance; "Name", "SystemName", "CreationClassName" and
 * "SystemCreationClassName" also become keys of @p path. */
CIM_API int add_prop_to_create_inst_req(const Property *property, void *path, void *instance,
                                        void *env);

/** Sets an array property of a new instance. */
CIM_API int add_prop_array_to_create_inst_req(const PropertyArray *property, void *instance,
                                              void *env);

/** Sets a reference property of a new instance. */
CIM_API int add_prop_ref_to_create_inst_req(const char *nameSpace,
                                            const PropertyReference *property, void *instance,
                                            void *env);

/** Sets all properties of a new instance. Always 0. */
CIM_API int create_inst_req_add_props(const char *nameSpace, const Instance *record, void *path,
                                      void *instance, void *env);

/** Fills a record from an instance and its path. */
CIM_API int mapInstance(void *instance, NamedInstance *record);

/** Fills a record from an instance. */
CIM_API int mapGetInstance(Instance *record, void *instance);

/** Fills the name and the properties of a record from a class, a CIMCClass. */
CIM_API int mapGetClass(void *brokerClass, Class *record);

/** Fills a record from a path. */
CIM_API int mapCreateinstance(void *path, InstanceName *record);

/** Fills a record from an instance and its path, with the namespace. */
CIM_API int mapObjectWithPath(void *instance, ObjectWithPath *record);

/** mapObjectWithPath() for the instance in @p data. */
CIM_API int map_to_object_with_path(const void *data, ObjectWithPath *record);

/** Fills a record from the instance in @p data and its path, without the namespace. */
CIM_API int mapReferences(const void *data, ObjectWithPath *record);

/** Fills a record from the path in @p data, without the namespace. */
CIM_API int mapReferenceNames(const void *data, ObjectPath *record);

/** Fills a record from the path in @p data, with the namespace. */
CIM_API int mapAssociatorNames(const void *data, ObjectPath *record);

/** Fills a record from the path in @p data. */
CIM_API int mapEnumInstanceNames(const void *data, InstanceName *record);

/** Makes an instance name of a path. */
CIM_API int mapInvokeReturnValue(void *path, InstanceName **nameOut);

/** Makes a list of the instances of an enumeration; elements of other kinds are passed over. */
CIM_API int manage_enumerate_instance(void *enumeration, NamedInstance **resultOut);

/** As manage_enumerate_instance(), with paths. */
CIM_API int manage_object_with_path(void *enumeration, ObjectWithPath **resultOut);

/** As manage_object_with_path(), the paths without namespace. */
CIM_API int manage_references(void *enumeration, ObjectWithPath **resultOut);

/** Makes a list of the paths of an enumeration, without namespace; other elements are passed
 * over. */
CIM_API int manage_references_names(void *enumeration, ObjectPath **resultOut);

/** As manage_references_names(), with namespace. */
CIM_API int manage_associator_names(void *enumeration, ObjectPath **resultOut);

/** Reads the properties of @p brokerClass, a CIMCClass, or when that is null of @p instance.
 * Properties without value are left out. */
CIM_API int GetInstanceProperties(void *instance, void *brokerClass, Property **propertiesOut,
                                  PropertyArray **propertyArraysOut,
                                  PropertyReference **propertyReferencesOut);

/** Makes a record of an instance. */
CIM_API int util_GetInstanceValues(void *instance, Instance **instanceOut);

/** Makes a list of the keys of a path. */
CIM_API int GetKeyBindingValues(void *path, KeyBinding **keyBindingsOut);

/** As GetKeyBindingValues(). */
CIM_API int GetKeysFromObjectPath(void *path, KeyBinding **keyBindingsOut);

/** Makes a list of the elements of an array of integers or strings; null for other arrays. */
CIM_API int getPropertyArrayData(Value **valuesOut, uint32_t code, void *array);

/** Makes a list of the output arguments of a method. */
CIM_API int add_args_to_invoke_response(void *args, ParamValue **parametersOut);

/** Fills a parameter from an output argument; a null @p value gives one without value.
 *  Values of reals, of char16 and of codes without a name are not handed out: the record stays
 *  as it is, without a name as well. */
CIM_API int CIMC_Handle_Invoke_ReturnValues(uint32_t code, const void *value, const char *name,
                                            ParamValue *record);

/** Makes an array of references of an array of paths. */
CIM_API int mapToValueReferenceList(void *array, ValueRefArray **listOut);

/** Turns a method's return value into an operation's result. Always 0. */
CIM_API int assign_invoke_ret_values(const void *data, int *result);

/** Appends a record filled by mapEnumInstanceNames(). */
CIM_API int AddToEnumInstanceNameList(const void *data, InstanceName **list);

/** Appends a record filled by map_to_object_with_path(). */
CIM_API int AddToAssociatorList(const void *data, ObjectWithPath **list);

/** Appends an empty record. */
CIM_API int AddToAssociatorNameList(const void *ignored, ObjectPath **list);

/** @} */

/** @defgroup tool_family Tools
 * @{ */

/**
 * Receives every trace line of the library and prints nothing. A program may put its own
 * function of this name in its place (by preloading it) to see them.
 * @return 0
 */
CIM_API int EmptyPrintf(const char *format, ...) CIM_PRINTF(1, 2);

/**
 * Appends the 25 characters of a CIM date-time, such as
 * "20240131235959.000000+060", to @p text. Numbers out of range come out as they are.
 * @param text  a text with room for 25 characters more; usually the empty text in 26 bytes
 * @return 0, or -1 when an argument is null
 */
CIM_API int CIMC_ConvertDateTimeToString(const CIMDateTime *dateTime, char *text);

/**
 * Appends the 25 characters of a CIM interval, such as "00000001020304.000000:000", to
 * @p text. Numbers out of range come out as they are.
 * @param text  as in CIMC_ConvertDateTimeToString()
 * @return 0, or -1 when an argument is null
 */
CIM_API int CIMC_ConvertIntervalToString(const CIMInterval *interval, char *text);

/**
 * Makes an object name out of copies of its arguments.
 * @param className     name of a class, or null
 * @param instanceName  instance names, or null
 * @return the object name, to be released with Free_ObjectName(); null when memory runs out
 */
CIM_API ObjectName *CIMC_CreateObjectName(const char *className, const InstanceName *instanceName);

/**
 * Makes a class name.
 * @param name  copied
 * @return the class name, to be released with Free_ClassName(); null when @p name is null or
 *         memory runs out
 */
CIM_API ClassName *CIMC_CreateClassName(const char *name);

/** Releases an object name with what it holds. Null is allowed. @return 0 */
CIM_API int Free_ObjectName(ObjectName *objectName);

/** Releases one instance name, and not the nodes after it. Null is allowed. @return 0 */
CIM_API int Free_InstanceName_New(InstanceName *instanceName);

/**
 * Takes the instance out of an indication: a CIM-XML export request, possibly behind
 * HTTP headers.
 * @param text         the request
 * @param instanceOut  receives the instance, to be released with Free_Instance()
 * @return 0; -1 when an argument is null, the text is no indication or memory runs out:
 *         @p *instanceOut is then untouched
 */
CIM_API int GetIndicationInstance(const char *text, Instance **instanceOut);

/** @} */

#undef CIM_FIELD_CLASS
#undef CIM_FIELD_NAMESPACE
#undef CIM_PRINTF

#ifdef __cplusplus
}
#endif

#endif /* CIM_CLIENT_H */
