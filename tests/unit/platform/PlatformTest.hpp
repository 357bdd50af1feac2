#ifndef PLATFORMTEST_HPP
#define PLATFORMTEST_HPP

#include <gtest/gtest.h>

#include <functional>
#include <string>

/** Gives each test a state directory of its own. */
class PlatformTest : public testing::Test
{
  protected:
    PlatformTest();
    ~PlatformTest() override;

    const std::string& stateDir() const { return m_stateDir; }
    std::string path(const std::string& entry) const { return m_stateDir + "/" + entry; }

    /** A file of the state directory; empty when there is none. */
    std::string contents(const std::string& entry) const;
    std::string events() const { return contents("events.log"); }
    void write(const std::string& entry, const std::string& text) const;
    bool exists(const std::string& entry) const;

    /** Makes the state directory one that does not exist. */
    void loseStateDir();

    /** What the function writes to standard error. */
    std::string complaints(const std::function<void()>& function) const;

  private:
    std::string m_root;
    std::string m_stateDir;
};

#endif
