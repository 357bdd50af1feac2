#include "OW_IntrusiveCountableBase.hpp"
#include "OW_IntrusiveReference.hpp"
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

using namespace OpenWBEM;

// The count lives in the library, where the analyzer does not look.
// NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)

namespace
{

class Counted : public IntrusiveCountableBase
{
  public:
    explicit Counted(bool& deleted) : m_deleted(deleted) {}
    Counted(const Counted&) = default;
    ~Counted() override { m_deleted = true; }

  private:
    bool& m_deleted;
};

class Named : public IntrusiveCountableBase
{
  public:
    Named(const char* itsName, bool& itsEnd) : name(itsName), deleted(&itsEnd) {}
    Named(const Named&) = default;
    Named& operator=(const Named&) = default;
    ~Named() override { *deleted = true; }

    std::string name;
    bool* deleted;
};

class Derived : public Counted
{
  public:
    explicit Derived(bool& deleted) : Counted(deleted) {}
};

} // namespace

TEST(IntrusiveReference, deletesTheObjectWithTheLastReference)
{
    bool deleted = false;
    IntrusiveReference<Counted> first(new Counted(deleted));
    {
        const IntrusiveReference<Counted> second(first);
        first = nullptr;
        EXPECT_FALSE(deleted);
    }
    EXPECT_TRUE(deleted);
}

TEST(IntrusiveReference, isTestedForNull)
{
    bool deleted = false;
    const IntrusiveReference<Counted> none;
    const IntrusiveReference<Counted> some(new Counted(deleted));
    EXPECT_FALSE(none);
    EXPECT_TRUE(!none);
    EXPECT_TRUE(some);
    EXPECT_FALSE(!some);
}

TEST(IntrusiveReference, convertsToTheBase)
{
    bool deleted = false;
    const IntrusiveReference<Derived> derived(new Derived(deleted));
    const IntrusiveReference<Counted> base(derived);
    EXPECT_EQ(derived.getPtr(), base.getPtr());
    EXPECT_TRUE(base == derived);
    EXPECT_TRUE(base.cast_to<Derived>() == derived);
}

TEST(IntrusiveReference, castsToNullWhenTheObjectIsOfAnotherClass)
{
    bool deleted = false;
    const IntrusiveReference<Counted> base(new Counted(deleted));
    EXPECT_FALSE(base.cast_to<Derived>());
    EXPECT_FALSE(dynamic_pointer_cast<Derived>(base));
    EXPECT_TRUE(static_pointer_cast<Counted>(base) == base);
}

TEST(IntrusiveReference, comparesAddresses)
{
    bool deleted = false;
    auto* const object = new Counted(deleted);
    const IntrusiveReference<Counted> reference(object);
    EXPECT_TRUE(reference == object);
    EXPECT_TRUE(object == reference);
    EXPECT_FALSE(reference != object);
    EXPECT_TRUE(reference != IntrusiveReference<Counted>());
}

TEST(IntrusiveReference, swaps)
{
    bool deleted = false;
    IntrusiveReference<Counted> some(new Counted(deleted));
    IntrusiveReference<Counted> none;
    some.swap(none);
    EXPECT_FALSE(some);
    EXPECT_TRUE(none);
}

TEST(IntrusiveReference, countsFromZeroInACopyOfTheObject)
{
    bool deleted = false;
    const IntrusiveReference<Counted> original(new Counted(deleted));
    {
        const IntrusiveReference<Counted> copy(new Counted(*original));
        EXPECT_FALSE(deleted);
    }
    EXPECT_TRUE(deleted);
}

TEST(IntrusiveReference, keepsItsCountWhenTheObjectIsAssigned)
{
    bool deleted = false;
    const IntrusiveReference<Named> first(new Named("first", deleted));
    const IntrusiveReference<Named> second(first);
    const IntrusiveReference<Named> other(new Named("other", deleted));
    *first = *other;
    {
        const IntrusiveReference<Named> third(first);
    }
    EXPECT_FALSE(deleted);
    EXPECT_EQ("other", second->name);
}

TEST(IntrusiveReference, isCountedCorrectlyByManyThreads)
{
    bool deleted = false;
    IntrusiveReference<Counted> shared(new Counted(deleted));
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([shared] {
            for (int n = 0; n < 1000; ++n) {
                IntrusiveReference<Counted> copy(shared);
                copy = nullptr;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    threads.clear();
    EXPECT_FALSE(deleted);
    shared = nullptr;
    EXPECT_TRUE(deleted);
}

// NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
