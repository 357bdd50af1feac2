#pragma once

#include "MofSyntax.hpp"
#include "MofTokenReader.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace cimom
{

// Reads the MOF that class files are made of: qualifier declarations, classes with properties, references and
// methods, "#pragma include" and "#pragma namespace". Associations and indications are classes here.
// Instances are errors: all instances come from providers.

// Throws MofError. The file name appears in errors, and included files are looked for relative to it.
MofDocument parseMof(std::string_view text, const std::string& fileName);

// Throws MofError, also for a file that cannot be read.
MofDocument parseMofFile(const std::string& path);

// The grammar of one file; parseMof and parseMofFile are the way in.
class MofParser : private MofTokenReader
{
  public:
    // includingFiles: the files being read already, outermost first; none of them may be included again.
    MofParser(std::string_view text, const std::string& fileName, std::vector<std::string> includingFiles);

    MofDocument parse();

  private:
    void pragma(MofDocument& document);
    MofQualifierDeclaration qualifierDeclaration();
    std::vector<std::string> scopes();
    void flavors(MofFlavors& into);
    void flavor(MofFlavors& into);

    MofClass classDeclaration(std::vector<MofQualifier> qualifiers);
    void feature(MofClass& into);
    std::vector<MofQualifier> qualifierList();
    MofQualifier qualifier();
    MofType type();
    void arraySuffix(MofType& into);
    std::vector<MofParameter> parameters();
    MofParameter parameter();

    MofValue value();
    void constant(MofValue& into);
    MofConstant stringConstant();

    std::vector<std::string> m_files;
    std::string m_nameSpace;
};

} // namespace cimom
