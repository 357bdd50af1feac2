#include "CallCommand.hpp"
#include "ConsoleLogger.hpp"
#include "HttpServer.hpp"
#include "ObjectManager.hpp"
#include "ProviderEnvironment.hpp"
#include "TerminationSignal.hpp"

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <malloc.h>
#include <sysexits.h>

namespace
{

using namespace cimom;

struct Options {
    ObjectManagerOptions objectManager;
    std::vector<std::string> configItems; // "name=value"
    std::string logLevel = "error";
    HttpOptions http;
    unsigned unloadAfter = 0; // seconds; 0: never
    CallOptions call;
    bool isCall = false;
};

void declare(CLI::App& app, Options& options)
{
    app.add_option("--mof", options.objectManager.mof, "MOF file, or directory of .mof files (repeatable)");
    app.add_option("--provider-dir", options.objectManager.providerDirectories,
                   "directory with provider libraries (repeatable)");
    app.add_option("--config", options.configItems,
                   "configuration item for providers, name=value (repeatable)");
    app.add_option("--log-level", options.logLevel, "what goes to standard error")
        ->check(CLI::IsMember({"none", "fatal", "error", "info", "debug"}))
        ->capture_default_str();
    app.add_option("--address", options.http.address, "numeric address to listen on")->capture_default_str();
    app.add_option("--port", options.http.port, "port to listen on, 0 for any free one")
        ->capture_default_str();
    app.add_option("--max-body", options.http.maxBody, "largest request in bytes")
        ->check(CLI::Range(1, 1 << 30))
        ->capture_default_str();
    app.add_option("--timeout", options.http.timeout,
                   "seconds for a header, a body, an answer, and for silence")
        ->check(CLI::Range(1, 86400))
        ->capture_default_str();
    app.add_option("--max-connections", options.http.maxConnections, "connections served at the same time")
        ->check(CLI::Range(1, 10000))
        ->capture_default_str();
    app.add_flag("--parallel", options.objectManager.isParallel,
                 "run reads side by side, as OpenWBEM does; without it one request at a time");
    app.add_flag("--bare-names", options.objectManager.hasBareNames,
                 "name enumerated instances as OpenWBEM does, without keys that they do not mark");
    app.add_option("--unload-after", options.unloadAfter,
                   "seconds after which an idle provider is unloaded, 0: never")
        ->capture_default_str();

    CLI::App* call = app.add_subcommand("call", "perform one operation without HTTP");
    call->add_option("operation", options.call.operation, "getInstance, ..., or a method of the object")
        ->required();
    call->add_option("object", options.call.objectPath, "[namespace:]Class[.Key=\"value\",...]")->required();
    call->add_option("assignments", options.call.assignments, "Name=value of properties or arguments");
    call->add_flag("--json", options.call.json, "print JSON");
    call->callback([&options] { options.isCall = true; });
}

ProviderEnvironment::ConfigItems configItems(const std::vector<std::string>& assignments)
{
    ProviderEnvironment::ConfigItems items;
    for (const std::string& assignment : assignments) {
        const std::size_t equals = std::min(assignment.find('='), assignment.size());
        items[assignment.substr(0, equals)] = assignment.substr(std::min(equals + 1, assignment.size()));
    }
    return items;
}

void serve(ObjectManager& objectManager, const Options& options, const OpenWBEM::LoggerRef& logger)
{
    TerminationSignal termination;
    HttpServer server(
        options.http, [&objectManager](const std::string& body) { return objectManager.answer(body); },
        [&logger](const std::string& line) { logger->logDebug(line.c_str()); });
    std::printf("kv-cimom: listening on %s port %u\n", options.http.address.c_str(), unsigned{server.port()});
    std::fflush(stdout);
    while (!termination.waitFor(std::chrono::seconds(1))) {
        if (options.unloadAfter != 0) {
            objectManager.unloadIdle(std::chrono::seconds(options.unloadAfter));
        }
    }
}

int run(const Options& options)
{
    OpenWBEM::LoggerRef logger(new ConsoleLogger(OpenWBEM::E_ERROR_LEVEL));
    logger->setLogLevel(OpenWBEM::String(options.logLevel.c_str()));
    const OpenWBEM::ProviderEnvironmentIFCRef environment(
        new ProviderEnvironment(logger, configItems(options.configItems)));
    ObjectManager objectManager(options.objectManager, environment);
    if (options.isCall) {
        return call(objectManager, options.call);
    }
    serve(objectManager, options, logger);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    // A handler, unlike SIG_IGN, is not inherited by the commands that providers run.
    std::signal(SIGPIPE, [](int) {});
    // One heap for all threads. Each of several heaps would keep what is freed in it, and memory would seem
    // to leak.
    mallopt(M_ARENA_MAX, 1);
    Options options;
    CLI::App app("Development object manager: serves CIM-XML from MOF files and OpenWBEM providers.",
                 "kv-cimom");
    declare(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e) == 0 ? 0 : EX_USAGE;
    }
    try {
        return run(options);
    } catch (const std::exception& e) {
        std::cerr << "kv-cimom: " << e.what() << "\n";
        return EX_CONFIG;
    }
}
