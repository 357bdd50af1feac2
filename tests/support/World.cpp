#include "World.hpp"

#include "MemoryFiles.hpp"

#include <net/if.h>

namespace fakes
{

namespace
{
// Each thread's own: a fuzzer's helper threads must not meet the fakes.
thread_local World* theWorld = nullptr;
} // namespace

Interface::Interface() : flags(IFF_UP | IFF_RUNNING) {}

World::World()
{
    // Several may live at once, each with a tree of its own.
    static thread_local unsigned worlds = 0;
    m_root = "/world-" + std::to_string(++worlds);
    for (const char* directoryInside : {"/etc/sysconfig/network-scripts", "/kv/etc", "/dev"})
        memory::makeDirectory(m_root + directoryInside);
    for (int n = 0; n < 3; ++n) {
        Interface& added = interfaces["eth" + std::to_string(n)];
        added.mac = {0x00, 0x0a, 0xf7, 0x01, 0x02, static_cast<unsigned char>(0xa0 + n)};
    }
    theWorld = this;
}

World::~World()
{
    theWorld = nullptr;
    memory::forgetAll(m_root + "/");
    memory::remove(m_root);
}

World* World::current()
{
    return theWorld;
}

void World::record(Kind kind, const std::string& line)
{
    m_journal.push_back({kind, line});
}

std::vector<std::string> World::journal(unsigned kinds) const
{
    std::vector<std::string> lines;
    for (const Entry& entry : m_journal) {
        if (entry.kind & kinds)
            lines.push_back(entry.line);
    }
    return lines;
}

void World::clearJournal()
{
    m_journal.clear();
}

void World::failNth(int nth, const std::string& function, int code, const std::string& detail)
{
    m_failures.push_back({nth, function, detail, code, false});
}

void World::failAll(const std::string& function, int code, const std::string& detail)
{
    m_failures.push_back({0, function, detail, code, false});
}

std::optional<int> World::failureOf(const std::string& function, const std::string& line)
{
    std::optional<int> code;
    for (Failure& failure : m_failures) {
        if (failure.function != function || line.find(failure.detail) == std::string::npos)
            continue;
        const bool every = failure.nth == 0;
        if (every || (!failure.met && --failure.nth == 0)) {
            failure.met = true;
            failure.nth = every ? 0 : -1;
            if (!code)
                code = failure.code;
        }
    }
    return code;
}

void World::problem(const std::string& text)
{
    m_problems.push_back(text);
}

std::vector<std::string> World::problems() const
{
    std::vector<std::string> all = m_problems;
    for (const Failure& failure : m_failures) {
        if (!failure.met)
            all.push_back("programmed failure never met: " + failure.function + " " + failure.detail);
    }
    for (const auto& [descriptor, what] : descriptors) {
        if (mayStayOpen.count(what) == 0)
            all.emplace_back("descriptor left open: " + what);
    }
    for (const auto& stream : streams)
        all.push_back("stream left open: " + stream.second);
    if (!lineArrays.empty())
        all.push_back("line arrays not released: " + std::to_string(lineArrays.size()));
    if (semaphoreHeld)
        all.emplace_back("the DHCP LAN semaphore is still held");
    return all;
}

std::string World::real(const std::string& path) const
{
    if (path.compare(0, m_root.size(), m_root) == 0)
        return path;
    return m_root + path;
}

void World::write(const std::string& path, const std::string& content) const
{
    memory::write(real(path), content);
}

std::string World::read(const std::string& path) const
{
    return memory::contentOf(real(path)).value_or("");
}

bool World::exists(const std::string& path) const
{
    return memory::exists(real(path));
}

void World::makeDirectory(const std::string& path) const
{
    memory::makeDirectory(real(path));
}

} // namespace fakes
