#pragma once

#include <cstdio>
#include <string>

namespace cimom::test
{

// Collects what the process writes to standard error while the object lives; providers of the test data print
// there.
class StderrCapture
{
  public:
    StderrCapture();
    ~StderrCapture();
    StderrCapture(const StderrCapture&) = delete;
    StderrCapture& operator=(const StderrCapture&) = delete;

    std::string take(); // what came since the last time

  private:
    int m_before;
    std::FILE* m_file;
};

} // namespace cimom::test
