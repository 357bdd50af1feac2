#ifndef KV_TESTS_WORLD_HPP
#define KV_TESTS_WORLD_HPP

#include "ems_client.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace fakes
{

/// What kind of call a journal line records, so that a test can leave out the kinds it is not about.
enum Kind : unsigned {
    Kernel = 1,    ///< socket, ioctl, close
    File = 2,      ///< open, fopen, fclose, rename, remove
    Registry = 4,  ///< Kvu...RegEntry...
    Diag = 8,      ///< KvuDiag...
    Os = 16,       ///< os...
    Dhcp = 32,     ///< dhcpIpInfo... queries: addresses, validity, default gateway
    Lock = 64,     ///< the DHCP LAN semaphore
    Notice = 128,  ///< DHCP notice, Ems...
    Command = 256, ///< runcommand
    Host = 512,    ///< gethostname, gethostbyname
    System = 1024, ///< syslog, sleep, perror
    Log = 2048,    ///< the object manager's loggers
    Everything = 4095,
    Content = 4096, ///< fgets, fwrite, fprintf on the product's streams: in no journal unless asked for:
                    ///< how many calls carry a content is not behaviour
    /// What a change does to the server: everything but queries and plain file access.
    Effects = Registry | Diag | Lock | Notice | Command | System | Log
};

/// One network interface of the faked kernel.
struct Interface {
    enum class Mii { None, Standard, Private };
    short flags;                              ///< IFF_UP | IFF_RUNNING by default
    int mtu = 1500;                           ///< bytes
    std::array<unsigned char, 6> mac{};       ///< hardware address
    Mii mii = Mii::None;                      ///< which MII requests the driver answers
    std::uint16_t phy = 1;                    ///< PHY address that the driver reports
    std::array<std::uint16_t, 8> registers{}; ///< MII registers 0 to 7
    Interface();
};

struct CommandResult {
    int status = 0;
    std::optional<std::vector<std::string>> out; ///< lines with their line breaks; absent: a null array
    std::optional<std::vector<std::string>> err;
};

struct IPInfo {
    std::string address, mask, gateway;
};

/// The server as the product sees it in a unit test. Every call that leaves the product lands in one ordered
/// journal, one line each. These are problems, which ServerTest turns into test failures: calls that nobody
/// foresaw, failures that were programmed but never met, descriptors, streams and line arrays left behind, a
/// semaphore still held.
class World
{
  public:
    World();
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// The world that the fakes of this thread talk to. Null outside of a test; the fakes then call the real
    /// functions.
    static World* current();

    // --- the journal
    void record(Kind kind, const std::string& line);
    std::vector<std::string> journal(unsigned kinds = Everything) const;
    void clearJournal();

    // --- programmed failures
    /// The nth call (1 = the next) of `function` whose journal line contains `detail` fails. `code` is the
    /// errno of a C library function, the status returned by a platform function, h_errno of gethostbyname.
    void failNth(int nth, const std::string& function, int code, const std::string& detail = "");
    /// Every call fails from now on.
    void failAll(const std::string& function, int code, const std::string& detail = "");
    /// For the fakes: the code with which this call is to fail, if it is.
    std::optional<int> failureOf(const std::string& function, const std::string& line);

    // --- problems
    void problem(const std::string& text);
    std::vector<std::string> problems() const; ///< includes what is left behind at the time of the call

    // --- files: absolute paths of the product are mapped into a temporary tree
    std::string real(const std::string& path) const;
    void write(const std::string& path, const std::string& content) const;
    std::string read(const std::string& path) const; ///< "" when the file does not exist
    bool exists(const std::string& path) const;
    void makeDirectory(const std::string& path) const;

    // --- the kernel
    std::map<std::string, Interface> interfaces; ///< eth0, eth1, eth2 at the start
    bool packetFilterPresent = true;             ///< whether /dev/kv_netfilter can be opened

    std::vector<int> socketTypes; ///< the type argument of each socket call, in order

    // --- descriptors and streams that the product holds, by what they are
    std::map<int, std::string> descriptors;
    std::map<void*, std::string> streams;
    std::set<std::string> mayStayOpen; ///< descriptions of descriptors that may be left behind

    // --- the platform
    std::map<std::pair<std::string, std::string>, std::uint16_t> registry; ///< (key path, value name)
    std::optional<std::uint16_t> failedReadLeaves; ///< what a failing registry read writes to its output
    unsigned long diagHandle = 0xD1A6;
    int processId = 4711;
    bool routerPresent = false;
    int routerResetStatus = 0;
    std::map<std::string, IPInfo> addresses; ///< what dhcpIpInfoGetIPInfo reports, by interface
    std::string defaultGateway;
    std::set<std::string>
        unusableAddresses; ///< dotted quads that dhcpIpInfoIsIPAddrValid refuses besides malformed ones
    std::map<std::string, int>
        addressVerdicts; ///< what dhcpIpInfoIsIPAddrValid returns for these texts instead
    EmsPacketHandler emsHandler = nullptr;
    bool semaphoreHeld = false;
    std::map<std::string, CommandResult>
        commands; ///< by exact command line; the helper commands succeed by default
    std::function<void(const std::string&)> onCommand; ///< called with each command line before it "runs"
    std::set<void*> lineArrays;                        ///< handed out by runcommand and not yet released

    // --- the host
    std::string hostName = "pbx";
    std::optional<std::string> officialHostName = "pbx.site.example";

  private:
    struct Failure {
        int nth; ///< 0: every call
        std::string function, detail;
        int code;
        bool met;
    };
    struct Entry {
        Kind kind;
        std::string line;
    };
    std::vector<Entry> m_journal;
    std::vector<Failure> m_failures;
    std::vector<std::string> m_problems;
    std::string m_root;
};

} // namespace fakes

#endif
