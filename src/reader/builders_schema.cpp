// Builders for schema elements.
#include "reader/create.h"

using cim::create;

extern "C" {

// clang-format off
StackEntry* CreateQualifier(StackEntry* entry, const XmlNode* node, void* parent) { return create<Qualifier>(entry, node, parent); }
StackEntry* CreateQualifierDecl(StackEntry* entry, const XmlNode* node, void* parent) { return create<QualifierDecl>(entry, node, parent); }
StackEntry* CreateProperty(StackEntry* entry, const XmlNode* node, void* parent) { return create<Property>(entry, node, parent); }
StackEntry* CreatePropertyArray(StackEntry* entry, const XmlNode* node, void* parent) { return create<PropertyArray>(entry, node, parent); }
StackEntry* CreatePropertyReference(StackEntry* entry, const XmlNode* node, void* parent) { return create<PropertyReference>(entry, node, parent); }
StackEntry* CreateMethod(StackEntry* entry, const XmlNode* node, void* parent) { return create<Method>(entry, node, parent); }
StackEntry* CreateParameter(StackEntry* entry, const XmlNode* node, void* parent) { return create<Parameter>(entry, node, parent); }
StackEntry* CreateParameterReference(StackEntry* entry, const XmlNode* node, void* parent) { return create<ParameterReference>(entry, node, parent); }
StackEntry* CreateParameterArray(StackEntry* entry, const XmlNode* node, void* parent) { return create<ParameterArray>(entry, node, parent); }
StackEntry* CreateParameterRefArray(StackEntry* entry, const XmlNode* node, void* parent) { return create<ParameterRefArray>(entry, node, parent); }
StackEntry* CreateClass(StackEntry* entry, const XmlNode* node, void* parent) { return create<Class>(entry, node, parent); }
StackEntry* CreateInstance(StackEntry* entry, const XmlNode* node, void* parent) { return create<Instance>(entry, node, parent); }
StackEntry* CreateNamedInstance(StackEntry* entry, const XmlNode* node, void* parent) { return create<NamedInstance>(entry, node, parent); }
StackEntry* CreateObject(StackEntry* entry, const XmlNode* node, void* parent) { return create<Object>(entry, node, parent); }
StackEntry* CreateObjectWithPath(StackEntry* entry, const XmlNode* node, void* parent) { return create<ObjectWithPath>(entry, node, parent); }
StackEntry* CreateObjectWithLocalPath(StackEntry* entry, const XmlNode* node, void* parent) { return create<ObjectWithLocalPath>(entry, node, parent); }
StackEntry* CreateNamedObject(StackEntry* entry, const XmlNode* node, void* parent) { return create<NamedObject>(entry, node, parent); }
// clang-format on

}  // extern "C"
