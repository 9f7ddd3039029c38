#include "ZorvoHost.h"

#include "export/CDisplacementCsv.h"
#include "host/ConsoleProgress.h"
#include "modelfile/ZorvoModelFile.h"
#include "solver/ZorvoSolver.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <omp.h>
#include <sys/stat.h>

namespace Tevra {

using namespace Data;
using FileIO::CDataFileError;
using FileIO::ZorvoModelFile;

namespace {

constexpr int kExitOk = 0;
constexpr int kExitFindings = 1;
constexpr int kExitFile = 2;

// A project read from a file, or the message of why it could not be.
bool LoadProject(const std::string& path, ZorvoData& doc, std::ostream& err) {
    std::vector<std::string> notes;
    try {
        ZorvoModelFile::Load(path, doc, &notes);
    } catch (const CDataFileError& e) {
        err << "zorvo: " << e.what() << '\n';
        return false;
    }
    for (const std::string& note : notes)
        err << "note: " << note << '\n';
    return true;
}

void Print(std::ostream& err, const char* kind, const std::vector<CString>& messages) {
    for (const CString& m : messages)
        err << kind << ": " << m.ToUtf8() << '\n';
}

// Runs every error pass, printing what each finds; answers whether there were errors.
bool ReportErrors(const ZorvoData& doc, std::ostream& err) {
    std::vector<CString> m;
    bool cancelled = false;
    bool any = false;
    auto run = [&](bool found) {
        Print(err, "error", m);
        any |= found;
    };
    run(doc.GeneralErrors(m, cancelled));
    run(doc.TunnelErrors(m, cancelled));
    run(doc.DisplacementPointErrors(m));
    run(doc.DisplacementLineErrors(m));
    run(doc.DisplacementPolylineErrors(m));
    run(doc.DisplacementGridErrors(m));
    run(doc.StageErrors(m, cancelled));
    return any;
}

void ReportWarnings(const ZorvoData& doc, std::ostream& err) {
    std::vector<CString> m;
    bool cancelled = false;
    doc.TunnelWarnings(m, cancelled);
    Print(err, "warning", m);
    doc.DisplacementPointWarnings(m);
    Print(err, "warning", m);
    doc.DisplacementLineWarnings(m);
    Print(err, "warning", m);
    doc.DisplacementPolylineWarnings(m);
    Print(err, "warning", m);
    doc.DisplacementGridWarnings(m);
    Print(err, "warning", m);
}

int Check(const std::string& path, std::ostream& out, std::ostream& err) {
    ZorvoData doc;
    if (!LoadProject(path, doc, err))
        return kExitFile;
    const bool errors = ReportErrors(doc, err);
    ReportWarnings(doc, err);
    out << path << ": " << (errors ? "has errors; it cannot be solved" : "ready to solve") << '\n';
    return errors ? kExitFindings : kExitOk;
}

const char* FamilyWord(EPointType t) {
    switch (t) {
    case ePoint:
        return "Point";
    case eLine:
        return "Line";
    case ePolyline:
        return "Polyline";
    default:
        return "Grid";
    }
}

// Per stage: the largest settlement and the largest horizontal movement, and where.
void PrintSummary(const ZorvoData& doc, std::ostream& out) {
    char buf[512];
    for (int s = 0; s < doc.NumStages(true, false); ++s) {
        // The first of equal peaks stays.
        struct Peak {
            double value = 0.0;
            const GeoDispResult* at = nullptr;
            std::string record;
        } settlement, horizontal;
        int samples = 0;
        for (int d = 1; d <= doc.NumDisplacementData(); ++d) {
            const CDisplacementData& record = doc.GetDisplacementData(d);
            if (!record.ResultsExist(s))
                continue;
            EPointType type;
            int index;
            doc.GetDisplacementTypeIndex(d, type, index);
            std::snprintf(buf, sizeof buf, "%s %d \"%s\"", FamilyWord(type), index,
                          record.Name().ToUtf8().c_str());
            for (const auto& row : record.GetResults(s)) {
                for (const GeoDispResult& r : row) {
                    ++samples;
                    const double h = std::hypot(r.GetXdisplacement(), r.GetYdisplacement());
                    if (!settlement.at ||
                        std::fabs(r.GetZdisplacement()) > std::fabs(settlement.value))
                        settlement = {r.GetZdisplacement(), &r, buf};
                    if (!horizontal.at || h > horizontal.value)
                        horizontal = {h, &r, buf};
                }
            }
        }
        out << "Stage " << s << " (" << doc.GetStageName(s).ToUtf8() << "): " << samples
            << " samples\n";
        if (!settlement.at)
            continue;
        auto report = [&](const char* what, const Peak& peak) {
            const Vec3<double>& p = peak.at->GetPoint();
            std::snprintf(buf, sizeof buf, "  largest %s %.3f mm at (%.3f, %.3f, %.3f) on ", what,
                          peak.value * 1000.0, p.x, p.y, p.z);
            out << buf << peak.record << '\n';
        };
        report("settlement", settlement);
        report("horizontal movement", horizontal);
    }
}

bool SameFile(const std::string& a, const std::string& b) {
    struct stat sa {
    }, sb{};
    if (::stat(a.c_str(), &sa) != 0 || ::stat(b.c_str(), &sb) != 0)
        return a == b;
    return sa.st_dev == sb.st_dev && sa.st_ino == sb.st_ino;
}

int Solve(const std::string& path, const std::string& output, const std::string& csvDir,
          int threads, std::ostream& out, std::ostream& err, const std::atomic<bool>* interrupt) {
    ZorvoData doc;
    if (!LoadProject(path, doc, err))
        return kExitFile;
    if (ReportErrors(doc, err)) {
        err << "zorvo: " << path << " has errors; it is not solved\n";
        return kExitFindings;
    }
    ReportWarnings(doc, err);
    if (threads > 0)
        omp_set_num_threads(threads);

    CLodraZorvoPrefData prefs;
    ConsoleProgress progress(err, doc);
    ZorvoSolver::CancelTest cancel;
    if (interrupt)
        cancel = [interrupt] { return interrupt->load(std::memory_order_relaxed); };
    ZorvoSolver solver(&doc, &prefs, &progress, cancel);
    solver.Solve();
    progress.Finish();
    const bool partial = solver.WasCancelled();
    if (partial)
        out << "The run was cancelled: the results below are PARTIAL.\n";
    PrintSummary(doc, out);

    if (!csvDir.empty()) {
        try {
            for (const std::string& file : CDisplacementCsv::WriteAll(doc, csvDir))
                out << "wrote " << file << (partial ? " (partial results)" : "") << '\n';
        } catch (const std::exception& e) {
            err << "zorvo: " << e.what() << '\n';
            return kExitFile;
        }
    }
    if (!output.empty()) {
        if (partial && SameFile(output, path)) {
            err << "zorvo: the run was cancelled; its partial results are not saved over " << path
                << '\n';
        } else {
            try {
                ZorvoModelFile::Save(output, doc);
                out << "saved " << output << (partial ? " (partial results)" : "") << '\n';
            } catch (const CDataFileError& e) {
                err << "zorvo: " << e.what() << '\n';
                return kExitFile;
            }
        }
    }
    return partial ? kExitFindings : kExitOk;
}

int Convert(const std::string& in, const std::string& outPath, std::ostream& out,
            std::ostream& err) {
    ZorvoData doc;
    if (!LoadProject(in, doc, err))
        return kExitFile;
    try {
        ZorvoModelFile::Save(outPath, doc);
    } catch (const CDataFileError& e) {
        err << "zorvo: " << e.what() << '\n';
        return kExitFile;
    }
    out << "wrote " << outPath << '\n';
    return kExitOk;
}

int Info(const std::string& path, std::ostream& out, std::ostream& err) {
    ZorvoData doc;
    if (!LoadProject(path, doc, err))
        return kExitFile;
    const GeoZorvoGeneral& g = doc.GetGeneral();
    out << path << '\n';
    if (!doc.GetTitles().GetTitle().IsEmpty())
        out << "  title: " << doc.GetTitles().GetTitle().ToUtf8() << '\n';
    out << "  problem type: "
        << (g.GetProblemType() == eMine ? "mine subsidence" : "tunnels and excavations") << '\n';
    const struct {
        const char* label;
        int count;
    } rows[] = {
        {"tunnels", doc.NumTunnels()},
        {"displacement points", doc.NumDisplacementPoints(false)},
        {"displacement lines", doc.NumDisplacementLines(false)},
        {"displacement polylines", doc.NumDisplacementPolylines(false)},
        {"displacement grids", doc.NumDisplacementGrids(false)},
        {"polylines", doc.NumPolylines()},
        {"stages", doc.NumActualStages(false, false)},
        {"stage properties", doc.NumStageProperties()},
    };
    for (const auto& r : rows)
        out << "  " << r.label << ": " << r.count << '\n';
    out << "  calculation stages: " << doc.NumStages(true, false)
        << (doc.IsSmoothingOn() ? " (with re-entrant corner smoothing)" : "") << '\n';
    out << "  results: " << (doc.ResultsExist(-1) ? "yes" : "none") << '\n';
    return kExitOk;
}

} // namespace

int RunZorvo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
             const std::atomic<bool>* interrupt) {
    CLI::App app{"zorvo: ground movements of tunnels and mines, and what they do"};
    app.name("zorvo");
    app.require_subcommand(1);

    std::string file, output, csvDir, in, outPath;
    int threads = 0;
    CLI::App* check = app.add_subcommand("check", "Report the project's errors and warnings");
    check->add_option("FILE", file, "Project file (.json or .zorvo)")->required();
    CLI::App* solve = app.add_subcommand("solve", "Check and solve a project");
    solve->add_option("FILE", file, "Project file (.json or .zorvo)")->required();
    solve->add_option("--output", output, "Save the solved project to this file");
    solve->add_option("--csv", csvDir, "Write the result tables into this directory");
    solve->add_option("--threads", threads, "Number of threads (default: all cores)")
        ->check(CLI::PositiveNumber);
    CLI::App* convert = app.add_subcommand("convert", "Convert a project between its forms");
    convert->add_option("IN", in, "Project file to read")->required();
    convert->add_option("OUT", outPath, "File to write; .json or .zorvo chooses the form")
        ->required();
    CLI::App* info = app.add_subcommand("info", "Say what a project holds");
    info->add_option("FILE", file, "Project file (.json or .zorvo)")->required();

    std::vector<std::string> reversed(args.rbegin(), args.rend());
    try {
        app.parse(reversed);
    } catch (const CLI::ParseError& e) {
        if (e.get_exit_code() == 0) { // --help
            out << app.help();
            return kExitOk;
        }
        err << "zorvo: " << e.what() << "\n" << app.help();
        return kExitFile;
    }
    if (*check)
        return Check(file, out, err);
    if (*solve)
        return Solve(file, output, csvDir, threads, out, err, interrupt);
    if (*convert)
        return Convert(in, outPath, out, err);
    return Info(file, out, err);
}

} // namespace Tevra
