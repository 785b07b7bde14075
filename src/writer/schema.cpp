// Writer for schema elements.
#include "writer/elements.h"

namespace cim {

// ---- Qualifiers ----

void write_element(Text& out, const QualifierFlavor& r) {
  out.put(" QUALIFIERFLAVOR'TRUE'",
          flag(" OVERRIDABLE='TRUE'", " OVERRIDABLE='FALSE'", r.overridable),
          flag(" TOSUBCLASS='TRUE'", " TOSUBCLASS='FALSE'", r.toSubclass),
          flag(" TOINSTANCE='TRUE'", " TOINSTANCE='FALSE'", r.toInstance),
          flag(" TRANSLATABLE='TRUE'", " TRANSLATABLE='FALSE'", r.translatable));
}

void write_element(Text& out, const Scope& r) {
  out.put("<SCOPE", when_true(" CLASS \"TRUE\"", r.class_),
          when_true(" ASSOCIATION \"TRUE\"", r.association),
          when_true(" REFERENCE \"TRUE\"", r.reference),
          when_true(" PROPERTY \"TRUE\"", r.property), when_true(" METHOD \"TRUE\"", r.method),
          when_true(" PARAMETER \"TRUE\"", r.parameter),
          when_true(" INDICATION \"TRUE\"", r.indication), "/>");
}

// The flavor stands in the content, behind the value.
void write_element(Text& out, const Qualifier& r) {
  out.put("<QUALIFIER NAME=", quoted(r.name), optional(" TYPE=", r.type),
          when_true(" PROPAGATED=TRUE", r.propagated), ">", r.value, r.valueArray,
          r.qualifierFlavor, "</QUALIFIER>");
}

// TYPE is opened, and then written whole.
void write_element(Text& out, const QualifierDecl& r) {
  out.put("<QUALIFIER.DECLARATION NAME=", quoted(r.name), optional(" TYPE=\" TYPE=", r.type),
          flag(" ISARRAY=\"TRUE\"", " ISARRAY=\"FALSE\"", r.isArray),
          wrapped(" QUALIFIERFLAVOR=\"", r.qualifierFlavor, "\""), ">", r.scope, r.value,
          r.valueArray, "</QUALIFIER.DECLARATION>");
}

// ---- Properties ----

void write_element(Text& out, const Property& r) {
  out.put("<PROPERTY", optional(" NAME=", r.name), optional(" TYPE=", r.type),
          optional(" CLASSORIGIN=", r.classOrigin), when_true(" PROPAGATED=TRUE", r.propagated),
          ">", r.qualifiers, r.value, "</PROPERTY>");
}

void write_element(Text& out, const PropertyArray& r) {
  out.put("<PROPERTY.ARRAY", optional(" NAME=", r.name), optional(" TYPE=", r.type),
          optional(" CLASSORIGIN=", r.classOrigin), when_positive(" ARRAYSIZE=", r.arraySize),
          when_true(" PROPAGATED 'TRUE'", r.propagated), ">", r.qualifiers, r.valueArray,
          "</PROPERTY.ARRAY>");
}

void write_element(Text& out, const PropertyReference& r) {
  out.put("<PROPERTY.REFERENCE", optional(" NAME=", r.name),
          optional(" REFERENCECLASS=", r.referenceClass), optional(" CLASSORIGIN=", r.classOrigin),
          when_true(" PROPAGATED 'TRUE'", r.propagated), ">", r.qualifiers, r.valueReference,
          "</PROPERTY.REFERENCE>");
}

// ---- Methods and parameters ----

void write_element(Text& out, const Parameter& r) {
  out.put("<PARAMETER", optional(" NAME=", r.name), optional(" TYPE=", r.type), ">", r.qualifiers,
          "</PARAMETER>");
}

void write_element(Text& out, const ParameterReference& r) {
  out.put("<PARAMETER.REFERENCE", optional(" NAME=", r.name),
          optional(" REFERENCECLASS=", r.referenceClass), ">", r.qualifiers,
          "</PARAMETER.REFERENCE>");
}

void write_element(Text& out, const ParameterArray& r) {
  out.put("<PARAMETER.ARRAY", optional(" NAME=", r.name), optional(" TYPE=", r.type),
          when_positive(" ARRAYSIZE=", r.arraySize), ">", r.qualifiers, "</PARAMETER.ARRAY>");
}

void write_element(Text& out, const ParameterRefArray& r) {
  out.put("<PARAMETER.REFARRAY", optional(" NAME=", r.name),
          optional(" REFERENCECLASS=", r.referenceClass), when_positive(" ARRAYSIZE=", r.arraySize),
          ">", r.qualifiers);  // left open
}

void write_element(Text& out, const Method& r) {
  out.put("<METHOD", optional(" NAME=", r.name), optional(" TYPE=", r.type),
          optional(" CLASSORIGIN=", r.classOrigin), when_true(" PROPAGATED 'TRUE'", r.propagated),
          ">", r.qualifiers, r.parameters, r.parameterReferences, r.parameterArrays,
          r.parameterRefArrays, "</METHOD>");
}

// ---- Classes and instances ----

void write_element(Text& out, const Class& r) {
  out.put("<CLASS", optional(" NAME=", r.name), optional(" SUPERCLASS=", r.superClass), ">",
          r.qualifiers, r.properties, r.propertyArrays, r.propertyReferences, r.methods,
          "</CLASS>");
}

void write_element(Text& out, const Instance& r) {
  out.put("<INSTANCE CLASSNAME=", r.className, ">", r.qualifiers, r.properties, r.propertyArrays,
          r.propertyReferences, "</INSTANCE>");
}

void write_element(Text& out, const NamedInstance& r) {
  out.put("<VALUE.NAMEDINSTANCE>", r.instanceName, r.instance, "</VALUE.NAMEDINSTANCE>");
}

void write_element(Text& out, const ResponseDestination& r) {
  out.put("<RESPONSEDESTINATION>", r.instance, "</ResponseDestination>");  // in mixed case
}

}  // namespace cim

using cim::append_to;
using cim::generate;
using cim::optional;

extern "C" {

int Gen_ClassOrigin(char* text, char** output) {
  return text ? append_to(output, optional(" CLASSORIGIN=", text)) : 0;
}
int Gen_ReferenceClass(char* text, char** output) {
  return text ? append_to(output, optional(" REFERENCECLASS=", text)) : 0;
}
int Gen_QualifierFlavor(QualifierFlavor* record, char** output) { return generate(record, output); }
int Gen_Scope(Scope* record, char** output) { return generate(record, output); }
int Gen_Qualifier(Qualifier* list, char** output) { return generate(list, output); }
int Gen_QualifierDecl(QualifierDecl* list, char** output) { return generate(list, output); }
int Gen_Property(Property* list, char** output) { return generate(list, output); }
int Gen_PropertyArray(PropertyArray* list, char** output) { return generate(list, output); }
int Gen_PropertyReference(PropertyReference* list, char** output) { return generate(list, output); }
int Gen_Parameter(Parameter* list, char** output) { return generate(list, output); }
int Gen_ParameterReference(ParameterReference* list, char** output) {
  return generate(list, output);
}
int Gen_ParameterArray(ParameterArray* list, char** output) { return generate(list, output); }
int Gen_ParameterRefArray(ParameterRefArray* list, char** output) { return generate(list, output); }
int Gen_Method(Method* list, char** output) { return generate(list, output); }
int Gen_Class(Class* list, char** output) { return generate(list, output); }
int Gen_Instance(Instance* list, char** output) { return generate(list, output); }
int Gen_NamedInstance(NamedInstance* list, char** output) { return generate(list, output); }
int Gen_ResponseDestination(ResponseDestination* record, char** output) {
  return generate(record, output);
}

}  // extern "C"
