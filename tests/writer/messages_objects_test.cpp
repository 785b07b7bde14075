// The bytes of objects and declarations in messages.
#include <gtest/gtest.h>

#include "cim_client.h"
#include "support/written.h"

namespace {

using support::text;
using support::written;

// ---- Objects ----

TEST(WriteObject, class_comes_before_instance) {
  Class definition{};
  Instance instance{};
  Object second{};
  Object first{.class_ = &definition, .instance = &instance, .next = &second};
  EXPECT_EQ(written(Gen_Object, &first),
            "<VALUE.OBJECT><CLASS></CLASS><INSTANCE CLASSNAME=></INSTANCE></VALUE.OBJECT>"
            "<VALUE.OBJECT></VALUE.OBJECT>");
}

TEST(WriteObjectWithPath, class_with_path_comes_before_instance_with_path) {
  ClassPath class_path{};
  Class definition{};
  InstancePath instance_path{};
  Instance instance{};
  ObjectWithPath second{};
  ObjectWithPath first{.classPath = &class_path,
                       .class_ = &definition,
                       .instancePath = &instance_path,
                       .instance = &instance,
                       .next = &second};
  EXPECT_EQ(written(Gen_ObjectWithPath, &first),
            "<VALUE.OBJECTWITHPATH><CLASSPATH></CLASSPATH><CLASS></CLASS>"
            "<INSTANCEPATH></INSTANCEPATH><INSTANCE CLASSNAME=></INSTANCE>"
            "</VALUE.OBJECTWITHPATH><VALUE.OBJECTWITHPATH></VALUE.OBJECTWITHPATH>");
}

TEST(WriteObjectWithLocalPath, class_with_path_comes_before_instance_with_path) {
  LocalClassPath class_path{};
  Class definition{};
  LocalInstancePath instance_path{};
  Instance instance{};
  ObjectWithLocalPath second{};
  ObjectWithLocalPath first{.localClassPath = &class_path,
                            .class_ = &definition,
                            .localInstancePath = &instance_path,
                            .instance = &instance,
                            .next = &second};
  EXPECT_EQ(written(Gen_ObjectWithLocalPath, &first),
            "<VALUE.OBJECTWITHLOCALPATH><LOCALCLASSPATH></LOCALCLASSPATH><CLASS></CLASS>"
            "<LOCALINSTANCEPATH></LOCALINSTANCEPATH><INSTANCE CLASSNAME=></INSTANCE>"
            "</VALUE.OBJECTWITHLOCALPATH>"
            "<VALUE.OBJECTWITHLOCALPATH></VALUE.OBJECTWITHLOCALPATH>");
}

TEST(WriteObjectPath, class_path_comes_before_instance_path) {
  InstancePath instance_path{};
  ClassPath class_path{};
  ObjectPath second{};
  ObjectPath first{.instancePath = &instance_path, .classPath = &class_path, .next = &second};
  EXPECT_EQ(written(Gen_ObjectPath, &first),
            "<VALUE.OBJECTPATH><CLASSPATH></CLASSPATH><INSTANCEPATH></INSTANCEPATH>"
            "</VALUE.OBJECTPATH><VALUE.OBJECTPATH></VALUE.OBJECTPATH>");
}

TEST(WriteNamedObject, class_then_name_then_instance) {
  Class definition{};
  InstanceName name{};
  Instance instance{};
  NamedObject second{};
  NamedObject first{
      .class_ = &definition, .instanceName = &name, .instance = &instance, .next = &second};
  EXPECT_EQ(written(Gen_NamedObject, &first),
            "<VALUE.NAMEDOBJECT><CLASS></CLASS><INSTANCENAME CLASSNAME=></INSTANCENAME>"
            "<INSTANCE CLASSNAME=></INSTANCE></VALUE.NAMEDOBJECT>"
            "<VALUE.NAMEDOBJECT></VALUE.NAMEDOBJECT>");
}

// ---- Declarations ----

TEST(WriteDeclaration, groups_in_their_order) {
  DeclGroup group{};
  DeclGroupWithName with_name{};
  DeclGroupWithPath with_path{};
  Declaration declaration{
      .declGroup = &group, .declGroupWithName = &with_name, .declGroupWithPath = &with_path};
  EXPECT_EQ(written(Gen_Declaration, &declaration),
            "<DECLARATION><DECLGROUP></DECLGROUP><DECLGROUP.WITHNAME></DECLGROUP.WITHNAME>"
            "<DECLGROUP.WITHPATH></DECLGROUP.WITHPATH></DECLARATION>");
}

TEST(WriteDeclGroup, namespaces_then_qualifiers_then_objects) {
  LocalNamespacePath local{};
  NamespacePath path{};
  QualifierDecl qualifier{.name = text("Key"), .isArray = 2};
  Object object{};
  DeclGroup group{.localNamespacePath = &local,
                  .namespacePath = &path,
                  .qualifierDecls = &qualifier,
                  .objects = &object};
  EXPECT_EQ(written(Gen_DeclGroup, &group),
            "<DECLGROUP><LOCALNAMESPACEPATH></LOCALNAMESPACEPATH><NAMESPACEPATH></NAMESPACEPATH>"
            "<QUALIFIER.DECLARATION NAME=\"Key\"></QUALIFIER.DECLARATION>"
            "<VALUE.OBJECT></VALUE.OBJECT></DECLGROUP>");
}

TEST(WriteDeclGroupWithName, namespaces_then_qualifiers_then_objects) {
  LocalNamespacePath local{};
  NamespacePath path{};
  QualifierDecl qualifier{.name = text("Key"), .isArray = 2};
  NamedObject object{};
  DeclGroupWithName group{.localNamespacePath = &local,
                          .namespacePath = &path,
                          .qualifierDecls = &qualifier,
                          .namedObjects = &object};
  EXPECT_EQ(written(Gen_DeclGroupWithName, &group),
            "<DECLGROUP.WITHNAME><LOCALNAMESPACEPATH></LOCALNAMESPACEPATH>"
            "<NAMESPACEPATH></NAMESPACEPATH>"
            "<QUALIFIER.DECLARATION NAME=\"Key\"></QUALIFIER.DECLARATION>"
            "<VALUE.NAMEDOBJECT></VALUE.NAMEDOBJECT></DECLGROUP.WITHNAME>");
}

TEST(WriteDeclGroupWithPath, paths_come_before_local_paths) {
  ObjectWithPath object{};
  ObjectWithLocalPath local_object{};
  DeclGroupWithPath group{.objectWithPaths = &object, .objectWithLocalPaths = &local_object};
  EXPECT_EQ(written(Gen_DeclGroupWithPath, &group),
            "<DECLGROUP.WITHPATH><VALUE.OBJECTWITHPATH></VALUE.OBJECTWITHPATH>"
            "<VALUE.OBJECTWITHLOCALPATH></VALUE.OBJECTWITHLOCALPATH></DECLGROUP.WITHPATH>");
}

}  // namespace
