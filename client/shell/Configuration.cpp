#include "shell/Configuration.hpp"

#include "shell/Exit.hpp"
#include "shell/Terminal.hpp"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <unistd.h>
#include <yaml-cpp/yaml.h>

namespace lanctl::shell
{

namespace
{

constexpr const char* defaultServer = "http://127.0.0.1:5988/root/cimv2";
constexpr std::size_t largestConfiguration = 1U << 20U;
constexpr std::size_t largestPassword = 1024;

std::string environment(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

std::string inHome(const std::string& path)
{
    return path.compare(0, 2, "~/") == 0 ? environment("HOME") + path.substr(1) : path;
}

bool isReadable(const std::string& path)
{
    return access(path.c_str(), R_OK) == 0;
}

/// The configuration file to use, or "" when there is none.
std::string configurationPath(const std::string& chosen)
{
    std::string named = chosen.empty() ? environment("LANCTL_CONFIG") : chosen;
    if (!named.empty())
        return named;
    const std::string home = environment("XDG_CONFIG_HOME");
    for (const auto& path :
         {(home.empty() ? inHome("~/.config") : home) + "/lanctl.yaml", std::string("/etc/lanctl.yaml")})
        if (isReadable(path))
            return path;
    return {};
}

YAML::Node configuration(const std::string& path)
{
    if (path.empty())
        return YAML::Node(YAML::NodeType::Map);
    try {
        YAML::Node root = YAML::Load(fileText(path, largestConfiguration));
        if (root.IsMap() || root.IsNull())
            return root;
    } catch (const YAML::Exception& e) {
        throw UsageError(path + ", line " + std::to_string(e.mark.line + 1) + ": " + e.msg);
    }
    throw UsageError(path + " is no configuration");
}

/// The part of the configuration file about one server.
class NamedServer
{
  public:
    NamedServer(const std::string& path, const std::string& name) : m_where(path + ", server " + name)
    {
        const YAML::Node servers = configuration(path)["servers"];
        if (!servers || !servers.IsMap() || !servers[name] || !servers[name].IsMap())
            throw UsageError("no server \"" + name + "\" in " +
                             (path.empty() ? "any configuration file" : path));
        m_server = servers[name];
        checkNames();
    }

    void fill(ConnectionChoice& choice) const
    {
        fill(choice.server, "url");
        fill(choice.user, "user");
        fill(choice.passwordFile, "password-file");
        fill(choice.caFile, "ca");
        if (text("insecure") == "true")
            choice.insecure = true;
        if (!choice.timeoutSeconds && !text("timeout").empty())
            choice.timeoutSeconds = m_server["timeout"].as<double>(std::nan(""));
    }

  private:
    void checkNames() const
    {
        static const std::set<std::string> known{"url", "user", "password-file", "ca", "insecure", "timeout"};
        for (const auto& entry : m_server)
            if (!entry.first.IsScalar() || !entry.second.IsScalar() || known.count(entry.first.Scalar()) == 0)
                throw UsageError(
                    m_where + ", line " + std::to_string(entry.first.Mark().line + 1) +
                    ": one of url, user, password-file, ca, insecure and timeout is expected, with a value");
    }

    std::string text(const char* name) const { return m_server[name] ? m_server[name].Scalar() : ""; }

    void fill(std::string& value, const char* name) const
    {
        if (value.empty())
            value = text(name);
    }

    std::string m_where;
    YAML::Node m_server;
};

/// Which server it is: --server, -s, LANCTL_SERVER, the configuration's "default", this machine.
ConnectionChoice completed(ConnectionChoice choice)
{
    if (!choice.server.empty() && !choice.serverName.empty())
        throw UsageError("--server and -s name a server each; give one of them");
    const std::string path = configurationPath(choice.configFile);
    if (choice.server.empty() && choice.serverName.empty())
        choice.server = environment("LANCTL_SERVER");
    if (choice.server.empty() && choice.serverName.empty()) {
        const YAML::Node chosen = configuration(path)["default"];
        if (chosen && chosen.IsScalar())
            choice.serverName = chosen.Scalar();
    }
    if (!choice.serverName.empty())
        NamedServer(path, choice.serverName).fill(choice);
    if (choice.server.empty())
        choice.server = defaultServer;
    return choice;
}

/// The first line of the password's file, the environment's, or what is typed. Never from the command line,
/// which every user of the machine can see.
std::string password(const ConnectionChoice& choice, const std::string& host)
{
    if (!choice.passwordFile.empty()) {
        const std::string text = fileText(inHome(choice.passwordFile), largestPassword);
        return text.substr(0, text.find_first_of("\r\n"));
    }
    if (std::getenv("LANCTL_PASSWORD") != nullptr)
        return environment("LANCTL_PASSWORD");
    const auto asked = askedPassword("Password of " + harmless(choice.user + " on " + host) + ": ");
    if (!asked)
        throw UsageError("no password for " + choice.user + ": give --password-file or LANCTL_PASSWORD");
    return *asked;
}

std::chrono::milliseconds timeLimit(double seconds)
{
    constexpr double longest = 86400;
    if (!(seconds > 0) || seconds > longest)
        throw UsageError("a time limit is more than 0 and at most 86400 seconds");
    return std::chrono::milliseconds(std::max(1L, std::lround(seconds * 1000)));
}

} // namespace

std::string fileText(const std::string& path, std::size_t largest)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw UsageError("cannot read " + path + ": " + std::strerror(errno));
    std::string text(largest + 1, '\0');
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (in.bad() || (in.fail() && !in.eof()))
        throw UsageError("cannot read " + path);
    text.resize(static_cast<std::size_t>(in.gcount()));
    if (text.size() > largest)
        throw UsageError(path + " is larger than " + std::to_string(largest) + " bytes");
    return text;
}

wire::ServerAddress serverAddress(const std::string& url)
{
    try {
        return wire::parseServerAddress(url);
    } catch (const wire::BadServerAddress& e) {
        throw UsageError(e.what());
    }
}

std::string serverLabel(const ConnectionChoice& given)
{
    const ConnectionChoice choice = completed(given);
    return choice.serverName.empty() ? serverAddress(choice.server).hostAndPort() : choice.serverName;
}

wire::ConnectionOptions connectionOptions(const ConnectionChoice& given)
{
    const ConnectionChoice choice = completed(given);
    wire::ConnectionOptions options;
    options.server = serverAddress(choice.server);
    options.user = choice.user;
    if (!choice.user.empty())
        options.password = password(choice, options.server.host);
    options.caFile = inHome(choice.caFile);
    options.insecure = choice.insecure;
    if (choice.timeoutSeconds)
        options.timeLimit = timeLimit(*choice.timeoutSeconds);
    return options;
}

std::vector<std::string> serverNames(const std::string& configFile)
{
    std::vector<std::string> names;
    const YAML::Node servers = configuration(configurationPath(configFile))["servers"];
    if (servers && servers.IsMap())
        for (const auto& server : servers)
            if (server.first.IsScalar())
                names.push_back(server.first.Scalar());
    return names;
}

} // namespace lanctl::shell
