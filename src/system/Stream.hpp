#ifndef KV_SYSTEM_STREAM_HPP
#define KV_SYSTEM_STREAM_HPP

#include <cstdio>
#include <memory>

struct StreamCloser {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

/// An open file of the server, closed at the end of its scope; null when it could not be opened. What fclose
/// returns is ignored: nobody could do anything about it.
using Stream = std::unique_ptr<std::FILE, StreamCloser>;

#endif
