#include "ZorvoHost.h"

#include "host/HostCommands.h"

#include <CLI/CLI.hpp>

#include <new>
#include <omp.h>

namespace Tevra {

namespace {

// More threads than this buy nothing on any machine and exhaust the runtime's stacks.
constexpr int kMaxThreads = 1024;

int Run(const std::vector<std::string>& args, HostSession& session) {
    CLI::App app{"zorvo: ground movements of tunnels and mines, and what they do"};
    app.name("zorvo");
    app.require_subcommand(1);

    std::string file, in, outPath;
    SSolveOptions solveOptions;
    CLI::App* check = app.add_subcommand("check", "Report the project's errors and warnings");
    check->add_option("FILE", file, "Project file (.json or .zorvo)")->required();
    CLI::App* solve = app.add_subcommand("solve", "Check and solve a project");
    solve->add_option("FILE", solveOptions.file, "Project file (.json or .zorvo)")->required();
    solve->add_option("--output", solveOptions.output, "Save the solved project to this file");
    solve->add_option("--csv", solveOptions.csvDir, "Write the result tables into this folder");
    solve
        ->add_option("--join", solveOptions.joins,
                     "Join a building's segment to the one before it and assess the joined "
                     "segments: B/O/S, the building, its vertical offset and the segment (2 or "
                     "more), numbered from 1; repeatable")
        ->type_name("B/O/S")
        ->allow_extra_args(false); // one B/O/S a --join, so that FILE can follow it
    const std::string cores = std::to_string(omp_get_num_procs());
    solve
        ->add_option("--threads", solveOptions.threads,
                     "Number of threads, 1 to " + std::to_string(kMaxThreads) +
                         " (default: every core, " + cores + " here)")
        ->check([cores](const std::string& text) -> std::string {
            int n = 0;
            size_t used = 0;
            try {
                n = std::stoi(text, &used);
            } catch (const std::exception&) {
                used = 0;
            }
            if (used != text.size() || n < 1 || n > kMaxThreads)
                return "--threads takes a whole number from 1 to " + std::to_string(kMaxThreads) +
                       " (this machine has " + cores + " cores), not " + text;
            return {};
        });
    CLI::App* convert = app.add_subcommand("convert", "Convert a project between its forms");
    convert->add_option("IN", in, "Project file to read")->required();
    convert->add_option("OUT", outPath, "File to write; .json or .zorvo chooses the form")
        ->required();
    CLI::App* info = app.add_subcommand("info", "Say what a project holds");
    info->add_option("FILE", file, "Project file (.json or .zorvo)")->required();
    SImportOptions importOptions;
    CLI::App* importCmd =
        app.add_subcommand("import", "Add a set of imported displacements from a CSV file");
    importCmd->add_option("MODEL", importOptions.model, "Project file (.json or .zorvo)")
        ->required();
    importCmd
        ->add_option("--csv", importOptions.csv,
                     "Comma-separated points, one a line: X, Y, Z, dX, dY, dZ (m)")
        ->required();
    importCmd->add_option("--name", importOptions.name, "Name of the set (default: the file's)");
    importCmd->add_option("--stages", importOptions.stages,
                          "Stages that include the set, such as \"1 to 3 5\" (the base model "
                          "always does)");
    importCmd->add_option("--output", importOptions.output, "File to save the project with the set")
        ->required();

    std::vector<std::string> reversed(args.rbegin(), args.rend());
    try {
        app.parse(reversed);
    } catch (const CLI::ParseError& e) {
        if (e.get_exit_code() == 0) { // --help
            session.Out() << app.help();
            return eExitOk;
        }
        session.Err() << "zorvo: " << e.what() << "\n" << app.help();
        return eExitUsage;
    }
    if (*check)
        return CheckCommand(session, file);
    if (*solve)
        return SolveCommand(session, solveOptions);
    if (*convert)
        return ConvertCommand(session, in, outPath);
    if (*importCmd)
        return ImportCommand(session, importOptions);
    return InfoCommand(session, file);
}

} // namespace

int RunZorvo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
             CEvent* interrupt) {
    HostSession session(out, err, interrupt);
    // Whatever escapes a command is a fault of the program: one line, never an abort.
    try {
        return Run(args, session);
    } catch (const std::bad_alloc&) {
        session.Fail("internal failure: out of memory; the job needs more than this machine "
                     "can give it");
    } catch (const std::exception& e) {
        session.Fail(std::string("internal failure: ") + e.what());
    } catch (...) {
        session.Fail("internal failure of an unknown kind");
    }
    return eExitInternal;
}

} // namespace Tevra
