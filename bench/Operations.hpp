#ifndef KV_BENCH_OPERATIONS_HPP
#define KV_BENCH_OPERATIONS_HPP

#include <functional>
#include <string>
#include <vector>

/// Something that the library does, as often as it is called, and the replay of its system calls in plain C.
/// Operations that make no system calls have no replay.
struct Operation {
    std::string name;
    std::function<void()> library;
    std::function<void()> replay;
};

/// The read operations of the library: interface queries, and the three read operations of the three classes.
std::vector<Operation> readOperations();

/// The parts that work on text in memory, and the configuration store on its file.
std::vector<Operation> partOperations();

#endif
