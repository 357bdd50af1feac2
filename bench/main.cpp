/// kv_bench: times the library's operations. Runs on the disposable server; report.py drives it.
///
///   kv_bench [--benchmark_...]        times every operation, and its replay, with Google Benchmark
///   kv_bench once NAME library|replay one operation between two getppid calls, for strace
///   kv_bench repeat NAME COUNT        one operation COUNT times inside the function `measured`, for
///   callgrind

#include "Operations.hpp"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

/// Has a name that callgrind's options can give.
extern "C" __attribute__((noinline)) void measured(const std::function<void()>& run, int count)
{
    for (int i = 0; i < count; ++i)
        run();
}

namespace
{

std::vector<Operation> allOperations()
{
    std::vector<Operation> operations = readOperations();
    for (Operation& part : partOperations())
        operations.push_back(std::move(part));
    return operations;
}

Operation named(const char* name)
{
    for (Operation& operation : allOperations())
        if (operation.name == name)
            return operation;
    std::fprintf(stderr, "kv_bench: there is no operation \"%s\"\n", name);
    std::exit(2);
}

void once(const std::function<void()>& run)
{
    run(); // the first time also loads and allocates what stays
    getppid();
    run();
    getppid();
}

void declare(const std::string& name, const std::function<void()>& run)
{
    benchmark::RegisterBenchmark(name.c_str(), [run](benchmark::State& state) {
        for (auto _ : state)
            run();
    });
}

int timeAll(int argc, char** argv)
{
    for (const Operation& operation : allOperations()) {
        declare("library/" + operation.name, operation.library);
        if (operation.replay)
            declare("replay/" + operation.name, operation.replay);
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 4 && std::strcmp(argv[1], "once") == 0) {
        const Operation operation = named(argv[2]);
        once(std::strcmp(argv[3], "replay") == 0 ? operation.replay : operation.library);
    } else if (argc == 4 && std::strcmp(argv[1], "repeat") == 0) {
        const Operation operation = named(argv[2]);
        operation.library();
        measured(operation.library, std::atoi(argv[3]));
    } else {
        return timeAll(argc, argv);
    }
    return 0;
}
