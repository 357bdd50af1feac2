#include "shell/CommandLine.hpp"

#include "shell/Commands.hpp"
#include "shell/Complaint.hpp"
#include "shell/Completion.hpp"
#include "shell/Objects.hpp"
#include "shell/Terminal.hpp"
#include "wayback/Folder.hpp"
#include "wayback/RevocableChange.hpp"
#include "wire/Failure.hpp"

#include <CLI/CLI.hpp>
#include <functional>
#include <iostream>
#include <optional>
#include <system_error>

namespace lanctl::shell
{

namespace
{

/// The shell's completion (client/completion/lanctl) calls it with the command line so far.
constexpr std::string_view completionCommand = "__complete";

/// What the options and arguments of all commands are read into, and the command that was chosen.
struct CommandLine {
    ConnectionChoice choice;
    Agreement agreement;
    WatchOptions watchOptions;
    WebOptions webOptions;
    std::vector<std::string> objects;
    std::string object;
    std::vector<std::string> assignments;
    std::string file;
    bool json = false;
    bool abandon = false;
    std::optional<int> number;
    std::function<Exit()> command;
};

void addConnectionOptions(CLI::App& app, ConnectionChoice& choice)
{
    const std::string group = "Server";
    app.add_option("--server", choice.server,
                   "URL of the server; otherwise LANCTL_SERVER, the configuration's default, or\n"
                   "http://127.0.0.1:5988/root/cimv2")
        ->type_name("URL")
        ->group(group);
    app.add_option("-s", choice.serverName, "a server of the configuration file")
        ->type_name("NAME")
        ->group(group);
    app.add_option("--config", choice.configFile, "the configuration file")->type_name("FILE")->group(group);
    app.add_option("--user", choice.user, "the user; the password is asked for")
        ->type_name("NAME")
        ->group(group);
    app.add_option("--password-file", choice.passwordFile, "a file whose first line is the password")
        ->type_name("FILE")
        ->group(group);
    app.add_option("--ca", choice.caFile, "the authority that vouches for the server's certificate")
        ->type_name("FILE")
        ->group(group);
    app.add_flag("--insecure", choice.insecure, "take any certificate")->group(group);
    app.add_option("--timeout", choice.timeoutSeconds, "seconds to wait for an answer (30)")
        ->type_name("SECONDS")
        ->group(group);
}

void addAgreementOptions(CLI::App& command, Agreement& agreement)
{
    command.add_flag("-y,--yes", agreement.yes, "agree without a question");
    command.add_flag("-n,--dry-run", agreement.dryRun, "show the plan and end");
    command.add_flag("--json", agreement.json, "tell plan and outcome as JSON");
}

void addConfirmOptions(CLI::App& command, Agreement& agreement)
{
    command
        .add_option("--confirm", agreement.confirmSeconds,
                    "take the change back unless it is confirmed within that time")
        ->type_name("SECONDS")
        ->check(CLI::Range(1, 86400));
    command
        .add_option("--revert-via", agreement.revertVia,
                    "a further URL by which the server is reached when the change is taken back")
        ->type_name("URL")
        ->allow_extra_args(false);
}

void addObjects(CLI::App& command, std::vector<std::string>& objects)
{
    command.add_option("OBJECT", objects, "eth0, eth1, eth2, lan or marking; without any, all")
        ->type_name("")
        ->check(CLI::IsMember(objectNames()));
}

void addReadCommands(CLI::App& app, CommandLine& line)
{
    CLI::App* show = app.add_subcommand("show", "show the server's state");
    addObjects(*show, line.objects);
    show->add_flag("--json", line.json, "as JSON");
    show->callback([&] { line.command = [&] { return shell::show(line.choice, line.objects, line.json); }; });

    CLI::App* watch = app.add_subcommand("watch", "show it live, changes highlighted");
    addObjects(*watch, line.objects);
    watch->add_option("--interval", line.watchOptions.intervalSeconds, "seconds between two looks (2)")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.1, 86400.0));
    watch->add_option("--count", line.watchOptions.count, "how often to look; without it until Ctrl-C")
        ->type_name("N")
        ->check(CLI::PositiveNumber);
    watch->callback(
        [&] { line.command = [&] { return shell::watch(line.choice, line.objects, line.watchOptions); }; });

    CLI::App* exportCommand = app.add_subcommand("export", "write the state as a file for apply");
    exportCommand->add_option("FILE", line.file, "where to; standard output without it")->type_name("");
    exportCommand->add_flag("--json", line.json,
                            "as JSON, as in a FILE that ends with .json; otherwise as YAML");
    exportCommand->callback(
        [&] { line.command = [&] { return exportState(line.choice, line.file, line.json); }; });

    CLI::App* diff = app.add_subcommand("diff", "compare the state with a file");
    diff->add_option("FILE", line.file, "the wanted state, YAML or JSON; - is standard input")
        ->type_name("")
        ->required();
    diff->add_flag("--json", line.json, "as JSON");
    diff->callback([&] { line.command = [&] { return shell::diff(line.choice, line.file, line.json); }; });
}

void addChangeCommands(CLI::App& app, CommandLine& line)
{
    CLI::App* set = app.add_subcommand("set", "change some values");
    set->add_option("OBJECT", line.object, "eth0, eth1, eth2, lan or marking")
        ->type_name("")
        ->required()
        ->check(CLI::IsMember(objectNames()));
    set->add_option("KEY=VALUE", line.assignments,
                    "address=10.0.0.6/24 gateway= mtu= dhcp=on, domain= dns1=, voice=EF ...")
        ->type_name("")
        ->required();
    addAgreementOptions(*set, line.agreement);
    addConfirmOptions(*set, line.agreement);
    set->callback([&] {
        line.command = [&] { return shell::set(line.choice, line.object, line.assignments, line.agreement); };
    });

    CLI::App* apply = app.add_subcommand("apply", "bring the server to the state of a file");
    apply->add_option("FILE", line.file, "the wanted state, YAML or JSON; - is standard input")
        ->type_name("")
        ->required();
    addAgreementOptions(*apply, line.agreement);
    addConfirmOptions(*apply, line.agreement);
    apply->callback(
        [&] { line.command = [&] { return applyFile(line.choice, line.file, line.agreement); }; });

    CLI::App* reset = app.add_subcommand("reset-router", "press the reset button of the router card");
    addAgreementOptions(*reset, line.agreement);
    reset->callback([&] { line.command = [&] { return resetRouter(line.choice, line.agreement); }; });
}

void addWayBackCommands(CLI::App& app, CommandLine& line)
{
    CLI::App* confirm = app.add_subcommand("confirm", "keep the change that waits for its confirmation");
    confirm->add_flag("--abandon", line.abandon, "give up a way back that does not succeed");
    confirm->callback([&] { line.command = [&] { return shell::confirm(line.choice, line.abandon); }; });

    CLI::App* status =
        app.add_subcommand("status", "list changes that wait for confirmation or their way back");
    status->add_flag("--json", line.json, "as JSON");
    status->callback([&] { line.command = [&] { return shell::status(line.json); }; });

    CLI::App* history = app.add_subcommand("history", "list the last changes of the server");
    history->add_flag("--json", line.json, "as JSON");
    history->callback([&] { line.command = [&] { return shell::history(line.choice, line.json); }; });

    CLI::App* rollback = app.add_subcommand("rollback", "bring back the state before a change");
    rollback->add_option("N", line.number, "the change's number in the history; without it the last one")
        ->type_name("")
        ->check(CLI::PositiveNumber);
    addAgreementOptions(*rollback, line.agreement);
    addConfirmOptions(*rollback, line.agreement);
    rollback->callback(
        [&] { line.command = [&] { return shell::rollback(line.choice, line.number, line.agreement); }; });
}

void addWebCommand(CLI::App& app, CommandLine& line)
{
    CLI::App* web = app.add_subcommand("web", "show and change the server in a browser");
    web->add_option("--listen", line.webOptions.listen, "where the page is served (127.0.0.1:8080)")
        ->type_name("ADDRESS:PORT");
    web->add_option("--confirm", line.webOptions.confirmSeconds,
                    "how long a change waits for its confirmation (60)")
        ->type_name("SECONDS")
        ->check(CLI::Range(1, 86400));
    web->add_flag("--read-only", line.webOptions.readOnly, "show only");
    web->callback([&] { line.command = [&] { return shell::web(line.choice, line.webOptions); }; });
}

void complain(const std::string& text)
{
    std::cerr << "lanctl: " << text << "\n";
}

Exit runCommand(const CommandLine& line)
{
    try {
        return line.command();
    } catch (const UsageError& e) {
        complain(harmless(e.what()));
        return Exit::Usage;
    } catch (const wayback::AnotherChange& e) {
        complain(harmless(e.what()));
        return Exit::NotAsWanted;
    } catch (const wayback::FolderError& e) {
        complain(harmless(e.what()));
        return Exit::NotAsWanted;
    } catch (const std::system_error& e) {
        complain(harmless(e.what()));
        return Exit::NotAsWanted;
    } catch (const wire::CimError& e) {
        complain(complaint(e));
        return Exit::NotAsWanted;
    } catch (const wire::Failure& e) {
        complain(complaint(e));
        return Exit::NoAnswer;
    }
}

} // namespace

int run(int argc, char** argv)
{
    CLI::App app{"Shows, plans and changes the network of a telephony server over CIM-XML.", "lanctl"};
    CommandLine line;
    app.require_subcommand(1);
    app.fallthrough();
    app.set_version_flag("--version", LANCTL_VERSION);
    addConnectionOptions(app, line.choice);
    addReadCommands(app, line);
    addChangeCommands(app, line);
    addWayBackCommands(app, line);
    addWebCommand(app, line);
    if (argc == 3 && std::string_view(argv[1]) == completionCommand) {
        for (const std::string& word : completions(app, argv[2]))
            std::cout << word << "\n";
        return 0;
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e) == 0 ? 0 : static_cast<int>(Exit::Usage);
    }
    return static_cast<int>(runCommand(line));
}

} // namespace lanctl::shell
