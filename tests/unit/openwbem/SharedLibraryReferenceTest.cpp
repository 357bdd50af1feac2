#include "OW_CppProviderBaseIFC.hpp"
#include "OW_SharedLibrary.hpp"
#include "OW_SharedLibraryReference.hpp"
#include <gtest/gtest.h>
#include <string>

using namespace OpenWBEM;

// The count lives in the library, where the analyzer does not look.
// NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)

namespace
{

class Library : public SharedLibrary
{
  public:
    explicit Library(std::string& journal) : m_journal(journal) {}
    ~Library() override { m_journal += "library closed;"; }

  protected:
    bool doGetFunctionPointer(const String&, void**) const override { return false; }

  private:
    std::string& m_journal;
};

class Provider : public CppProviderBaseIFC
{
  public:
    explicit Provider(std::string& journal) : m_journal(journal) {}
    ~Provider() override { m_journal += "provider deleted;"; }
    bool canUnload() override { return false; }

  private:
    std::string& m_journal;
};

CppProviderBaseIFCRef loaded(std::string& journal)
{
    return CppProviderBaseIFCRef(SharedLibraryRef(new Library(journal)), new Provider(journal));
}

const char* const UNLOADED = "provider deleted;library closed;";

} // namespace

TEST(SharedLibraryReference, reachesTheObject)
{
    std::string journal;
    const CppProviderBaseIFCRef reference = loaded(journal);
    EXPECT_TRUE(reference);
    EXPECT_FALSE(reference->canUnload());
    EXPECT_TRUE(reference.getLibRef());
    EXPECT_FALSE(CppProviderBaseIFCRef());
}

TEST(SharedLibraryReference, dropsTheObjectBeforeTheLibrary)
{
    std::string journal;
    {
        const CppProviderBaseIFCRef reference = loaded(journal);
    }
    EXPECT_EQ(UNLOADED, journal);
}

TEST(SharedLibraryReference, dropsBothWithTheLastReference)
{
    std::string journal;
    CppProviderBaseIFCRef first = loaded(journal);
    CppProviderBaseIFCRef second(first);
    first.setNull();
    EXPECT_EQ("", journal);
    second.setNull();
    EXPECT_EQ(UNLOADED, journal);
}

TEST(SharedLibraryReference, dropsTheOldObjectBeforeTheOldLibraryWhenAssigned)
{
    std::string journal;
    std::string other;
    CppProviderBaseIFCRef reference = loaded(journal);
    reference = loaded(other);
    EXPECT_EQ(UNLOADED, journal);
    EXPECT_EQ("", other);
}

// NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
