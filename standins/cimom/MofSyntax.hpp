#pragma once

#include "MofError.hpp"

#include <string>
#include <variant>
#include <vector>

namespace cimom
{

// What a MOF file says, before anything is looked up: names may be unknown.

struct MofConstant {
    enum class Kind { String, Character, Integer, Real, Boolean };

    Kind kind = Kind::String;
    std::string text; // integers in decimal, booleans as "true" or "false"
    SourcePosition position;
};

// The value of a qualifier or the default of a property; NULL is an empty scalar.
struct MofValue {
    bool isArray = false;
    std::vector<MofConstant> elements;
    SourcePosition position;

    bool isNull() const { return !isArray && elements.empty(); }
};

struct MofType {
    std::string name; // "uint16", or the class a reference points to
    bool isReference = false;
    bool isArray = false;
    int arraySize = -1; // -1: no size given
    SourcePosition position;
};

struct MofFlavors {
    // Where the file says nothing, the standard's defaults hold: EnableOverride, ToSubclass.
    bool overridable = true;
    bool toSubclass = true;
    bool translatable = false;
};

struct MofQualifier {
    std::string name;
    bool hasValue = false; // [Key] alone means true, or the declared default
    MofValue value;
    SourcePosition position;
};

struct MofParameter {
    std::string name;
    MofType type;
    std::vector<MofQualifier> qualifiers;
};

struct MofProperty {
    std::string name;
    MofType type;
    std::vector<MofQualifier> qualifiers;
    MofValue defaultValue;
    SourcePosition position;
};

struct MofMethod {
    std::string name;
    MofType type;
    std::vector<MofQualifier> qualifiers;
    std::vector<MofParameter> parameters;
    SourcePosition position;
};

struct MofClass {
    std::string nameSpace; // empty: the default one
    std::string name;
    std::string superClass; // empty: none
    SourcePosition superClassPosition;
    std::vector<MofQualifier> qualifiers;
    std::vector<MofProperty> properties;
    std::vector<MofMethod> methods;
    SourcePosition position;
};

struct MofQualifierDeclaration {
    std::string nameSpace;
    std::string name;
    MofType type;
    MofValue defaultValue;
    std::vector<std::string> scopes; // lower case
    MofFlavors flavors;
    SourcePosition position;
};

using MofDeclaration = std::variant<MofQualifierDeclaration, MofClass>;
using MofDocument = std::vector<MofDeclaration>;

} // namespace cimom
