// Builders for messages and declarations.
#include "reader/create.h"

using cim::create;

extern "C" {

// The root links into nothing, and its entry always names it, child or not.
StackEntry* CreateCIM(StackEntry* entry, const XmlNode* node, void*) {
  if (!entry || !node) return entry;
  cim::Names names;
  cim::Building building{.element = *node, .names = names};
  return cim::fill(entry, cim::build<CIM>(building), "CIM");
}

// clang-format off
StackEntry* CreateMessage(StackEntry* entry, const XmlNode* node, void* parent) { return create<Message>(entry, node, parent); }
StackEntry* CreateSimpleReq(StackEntry* entry, const XmlNode* node, void* parent) { return create<SimpleReq>(entry, node, parent); }
StackEntry* CreateMultiReq(StackEntry* entry, const XmlNode* node, void* parent) { return create<MultiReq>(entry, node, parent); }
StackEntry* CreateSimpleRsp(StackEntry* entry, const XmlNode* node, void* parent) { return create<SimpleRsp>(entry, node, parent); }
StackEntry* CreateMultiRsp(StackEntry* entry, const XmlNode* node, void* parent) { return create<MultiRsp>(entry, node, parent); }
StackEntry* CreateIMethodCall(StackEntry* entry, const XmlNode* node, void* parent) { return create<IMethodCall>(entry, node, parent); }
StackEntry* CreateIMethodResponse(StackEntry* entry, const XmlNode* node, void* parent) { return create<IMethodResponse>(entry, node, parent); }
StackEntry* CreateMethodCall(StackEntry* entry, const XmlNode* node, void* parent) { return create<MethodCall>(entry, node, parent); }
StackEntry* CreateMethodResponse(StackEntry* entry, const XmlNode* node, void* parent) { return create<MethodResponse>(entry, node, parent); }
StackEntry* CreateReturnValue(StackEntry* entry, const XmlNode* node, void* parent) { return create<ReturnValue>(entry, node, parent); }
StackEntry* CreateError(StackEntry* entry, const XmlNode* node, void* parent) { return create<Error>(entry, node, parent); }
StackEntry* CreateResponseDestination(StackEntry* entry, const XmlNode* node, void* parent) { return create<ResponseDestination>(entry, node, parent); }
StackEntry* CreateSimpleReqAck(StackEntry* entry, const XmlNode* node, void* parent) { return create<SimpleReqAck>(entry, node, parent); }
StackEntry* CreateIParamValue(StackEntry* entry, const XmlNode* node, void* parent) { return create<IParamValue>(entry, node, parent); }
StackEntry* CreateIReturnValue(StackEntry* entry, const XmlNode* node, void* parent) { return create<IReturnValue>(entry, node, parent); }
StackEntry* CreateParamValue(StackEntry* entry, const XmlNode* node, void* parent) { return create<ParamValue>(entry, node, parent); }
StackEntry* CreateExpParamValue(StackEntry* entry, const XmlNode* node, void* parent) { return create<ExpParamValue>(entry, node, parent); }
StackEntry* CreateExpMethodCall(StackEntry* entry, const XmlNode* node, void* parent) { return create<ExpMethodCall>(entry, node, parent); }
StackEntry* CreateExpMethodResponse(StackEntry* entry, const XmlNode* node, void* parent) { return create<ExpMethodResponse>(entry, node, parent); }
StackEntry* CreateSimpleExpReq(StackEntry* entry, const XmlNode* node, void* parent) { return create<SimpleExpReq>(entry, node, parent); }
StackEntry* CreateMultiExpReq(StackEntry* entry, const XmlNode* node, void* parent) { return create<MultiExpReq>(entry, node, parent); }
StackEntry* CreateSimpleExpRsp(StackEntry* entry, const XmlNode* node, void* parent) { return create<SimpleExpRsp>(entry, node, parent); }
StackEntry* CreateMultiExpRsp(StackEntry* entry, const XmlNode* node, void* parent) { return create<MultiExpRsp>(entry, node, parent); }
StackEntry* CreateDeclaration(StackEntry* entry, const XmlNode* node, void* parent) { return create<Declaration>(entry, node, parent); }
StackEntry* CreateDeclGroup(StackEntry* entry, const XmlNode* node, void* parent) { return create<DeclGroup>(entry, node, parent); }
StackEntry* CreateDeclGroupWithName(StackEntry* entry, const XmlNode* node, void* parent) { return create<DeclGroupWithName>(entry, node, parent); }
StackEntry* CreateDeclGroupWithPath(StackEntry* entry, const XmlNode* node, void* parent) { return create<DeclGroupWithPath>(entry, node, parent); }
StackEntry* CreateTable(StackEntry* entry, const XmlNode* node, void* parent) { return create<Table>(entry, node, parent); }
StackEntry* CreateTableRowDecl(StackEntry* entry, const XmlNode* node, void* parent) { return create<TableRowDecl>(entry, node, parent); }
StackEntry* CreateTableCellDecl(StackEntry* entry, const XmlNode* node, void* parent) { return create<TableCellDecl>(entry, node, parent); }
StackEntry* CreateTableCellReference(StackEntry* entry, const XmlNode* node, void* parent) { return create<TableCellReference>(entry, node, parent); }
StackEntry* CreateTableRow(StackEntry* entry, const XmlNode* node, void* parent) { return create<TableRow>(entry, node, parent); }
// clang-format on

}  // extern "C"
