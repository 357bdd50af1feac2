// lanctl web: the page, until somebody ends it.
#include "shell/Commands.hpp"
#include "shell/Terminal.hpp"
#include "wayback/Histories.hpp"
#include "web/HttpServer.hpp"
#include "web/OwnAddresses.hpp"

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <pthread.h>

namespace lanctl::shell
{

namespace
{

/// The connection's options as another lanctl understands them.
std::vector<std::string> argumentsOf(const ConnectionChoice& choice)
{
    std::vector<std::string> arguments;
    const auto add = [&](const char* option, const std::string& value) {
        if (!value.empty())
            arguments.insert(arguments.end(), {option, value});
    };
    add("--server", choice.server);
    add("-s", choice.serverName);
    add("--config", choice.configFile);
    add("--user", choice.user);
    add("--password-file", choice.passwordFile);
    add("--ca", choice.caFile);
    if (choice.insecure)
        arguments.emplace_back("--insecure");
    if (choice.timeoutSeconds)
        add("--timeout", std::to_string(*choice.timeoutSeconds));
    return arguments;
}

web::ListenAddress listenAddress(const std::string& text)
{
    try {
        return web::parseListenAddress(text);
    } catch (const std::invalid_argument& e) {
        throw UsageError(e.what());
    }
}

std::string pageUrl(const web::ListenAddress& address, const std::string& token)
{
    return "http://" + address.text() + "/" + (token.empty() ? "" : "#token=" + token);
}

/// The hosts by which a browser may name the page: those of this machine. Anywhere else the token decides.
std::vector<std::string> hostNames(const web::ListenAddress& address)
{
    if (!address.isLoopback())
        return {};
    const std::string port = ":" + std::to_string(address.port);
    return {address.text(), "127.0.0.1" + port, "localhost" + port, "[::1]" + port};
}

/// Blocks Ctrl-C, the end of the terminal and SIGTERM in this thread and those started later. This thread
/// waits for them.
sigset_t blockedEndings()
{
    sigset_t endings;
    sigemptyset(&endings);
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&endings, number);
    pthread_sigmask(SIG_BLOCK, &endings, nullptr);
    return endings;
}

} // namespace

Exit web(const ConnectionChoice& choice, const WebOptions& options)
{
    const web::ListenAddress address = listenAddress(options.listen);
    const wire::ConnectionOptions connection = connectionOptions(choice);
    if (!connection.user
             .empty()) // for the lanctl that makes a change; a password that was typed is typed once
        setenv("LANCTL_PASSWORD", connection.password.c_str(), 1);
    const std::string label = serverLabel(choice);
    const std::string token = address.isLoopback() ? "" : web::newToken();
    const sigset_t endings = blockedEndings();

    web::Follower follower(connection);
    web::Api api({label, options.readOnly, options.confirmSeconds, argumentsOf(choice)}, follower,
                 wayback::historyOf(label));
    const web::Gate gate(hostNames(address), token);
    const web::HttpServer server(address, gate, api);
    const std::vector<web::ListenAddress> reachable = web::reachableAt(address);
    std::cout << "Showing " << harmless(label) << " at " << pageUrl(reachable.front(), token)
              << " until you press Ctrl-C.\n";
    for (std::size_t i = 1; i < reachable.size(); ++i)
        std::cout << "Also at " << pageUrl(reachable[i], token) << "\n";
    std::cout << std::flush;
    int ending = 0;
    sigwait(&endings, &ending);
    return Exit::Done;
}

} // namespace lanctl::shell
