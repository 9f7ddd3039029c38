#include "host/HostCommands.h"

#include "export/CDisplacementCsv.h"
#include "host/BuildingReport.h"
#include "host/ConsoleProgress.h"
#include "host/HostText.h"
#include "host/UtilityReport.h"
#include "modelfile/ZorvoModelFile.h"
#include "solver/ZorvoSolver.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <omp.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tevra {

using namespace Data;
using FileIO::CDataFileError;
using FileIO::ZorvoModelFile;

namespace {

// A number to 3 decimals, in full however large.
std::string Fixed3(double v) { return Printed("%.3f", v); }

// Per stage: the largest settlement and the largest horizontal movement, and where.
// Samples holding a value that is not a finite number have been reported as errors;
// they take no part here.
void PrintSummary(const ZorvoData& doc, std::ostream& out) {
    for (int s = 0; s < doc.NumStages(true, false); ++s) {
        // The first of equal peaks stays.
        struct Peak {
            double value = 0.0;
            const GeoDispResult* at = nullptr;
            std::string record;
        } settlement, horizontal;
        long long samples = 0, leftOut = 0;
        for (int d = 1; d <= doc.NumDisplacementData(); ++d) {
            const CDisplacementData& record = doc.GetDisplacementData(d);
            if (!record.ResultsExist(s))
                continue;
            const std::string label = SanityChecks::DisplacementLabel(doc, d);
            for (const auto& row : record.GetResults(s)) {
                for (const GeoDispResult& r : row) {
                    if (!r.IsCalculated())
                        continue; // never reached by a cancelled run
                    ++samples;
                    if (!SanityChecks::IsFinite(r)) {
                        ++leftOut;
                        continue;
                    }
                    const double h = std::hypot(r.GetXdisplacement(), r.GetYdisplacement());
                    if (!settlement.at ||
                        std::fabs(r.GetZdisplacement()) > std::fabs(settlement.value))
                        settlement = {r.GetZdisplacement(), &r, label};
                    if (!horizontal.at || h > horizontal.value)
                        horizontal = {h, &r, label};
                }
            }
        }
        out << "Stage " << s << " (" << doc.GetStageName(s).ToUtf8() << "): " << samples
            << " samples";
        if (leftOut > 0)
            out << ", " << leftOut << " of them not finite numbers and left out";
        out << '\n';
        if (!settlement.at)
            continue;
        auto report = [&](const char* what, const Peak& peak) {
            const Vec3<double>& p = peak.at->GetPoint();
            out << "  largest " << what << ' ' << Fixed3(peak.value * 1000.0) << " mm at ("
                << Fixed3(p.x) << ", " << Fixed3(p.y) << ", " << Fixed3(p.z) << ") on "
                << peak.record << '\n';
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

std::string Folder(const std::string& path) {
    const size_t slash = path.find_last_of('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// Why new files cannot be made in a folder; empty when they can.
std::string FolderFault(const std::string& folder) {
    struct stat st {};
    if (::stat(folder.c_str(), &st) != 0)
        return std::strerror(errno);
    if (!S_ISDIR(st.st_mode))
        return "it is not a folder";
    if (::access(folder.c_str(), W_OK) != 0)
        return std::strerror(errno);
    return {};
}

// Whether the files a run will write can be written, tested before the run: the
// solved project's form and folder, and the tables' folder, made when missing.
bool OutputsWritable(HostSession& session, const SSolveOptions& o) {
    if (!o.output.empty()) {
        try {
            ZorvoModelFile::FormForPath(o.output);
        } catch (const CDataFileError& e) {
            session.Fail(e.what());
            return false;
        }
        const std::string folder = Folder(o.output);
        const std::string fault = FolderFault(folder);
        if (!fault.empty()) {
            session.Fail(o.output + ": cannot save in the folder " + folder + ": " + fault);
            return false;
        }
    }
    if (!o.csvDir.empty()) {
        struct stat st {};
        if (::stat(o.csvDir.c_str(), &st) != 0 && ::mkdir(o.csvDir.c_str(), 0755) != 0) {
            session.Fail(o.csvDir +
                         ": cannot make the folder for the result tables: " + std::strerror(errno));
            return false;
        }
        const std::string fault = FolderFault(o.csvDir);
        if (!fault.empty()) {
            session.Fail(o.csvDir + ": cannot write the result tables there: " + fault);
            return false;
        }
    }
    return true;
}

} // namespace

int SolveCommand(HostSession& session, const SSolveOptions& o) {
    std::ostream& out = session.Out();
    std::ostream& err = session.Err();
    if (!OutputsWritable(session, o))
        return eExitUsage;
    ZorvoData doc;
    if (!session.Load(o.file, doc))
        return eExitUsage;
    std::vector<BuildingReport::SJoin> joins;
    for (const std::string& text : o.joins) {
        BuildingReport::SJoin join;
        const std::string fault = BuildingReport::ParseJoin(text, doc, join);
        if (!fault.empty()) {
            session.Fail(fault);
            return eExitUsage;
        }
        joins.push_back(join);
    }
    const int threads = o.threads > 0 ? o.threads : omp_get_num_procs();
    switch (session.Check(doc, threads)) {
    case HostSession::eCancelled:
        session.Fail("the checks were cancelled; " + o.file + " is not solved");
        return eExitFindings;
    case HostSession::eErrors:
        session.Fail(o.file + " has errors; it is not solved");
        return eExitFindings;
    default:
        break;
    }
    omp_set_num_threads(threads);

    CLodraZorvoPrefData prefs;
    ConsoleProgress progress(err, doc);
    ZorvoSolver::CancelTest cancel;
    if (CEvent* interrupt = session.Interrupt())
        cancel = [interrupt] { return interrupt->IsSignalled(); };
    ZorvoSolver solver(&doc, &prefs, &progress, cancel);
    solver.Solve();
    const bool partial = solver.WasCancelled();
    // Segments are joined only in a whole run: the joined results rest on all the others.
    const std::vector<std::string> nothingJoined =
        partial ? std::vector<std::string>{} : BuildingReport::Join(doc, solver, joins);
    progress.Finish();
    for (const CString& note : solver.Notes())
        err << "note: " << note.ToUtf8() << '\n';
    for (const std::string& note : nothingJoined)
        err << "note: " << note << '\n';
    if (partial)
        out << "The run was cancelled: the results below are PARTIAL.\n";
    const bool notFinite = session.Report(SanityChecks::Results(doc));
    PrintSummary(doc, out);
    BuildingReport::Print(doc, out);
    UtilityReport::Print(doc, out);

    if (!o.csvDir.empty()) {
        try {
            for (const std::string& file : CDisplacementCsv::WriteAll(doc, o.csvDir))
                out << "wrote " << file << (partial ? " (partial results)" : "") << '\n';
            if (doc.NumSpecificBuildings() > 0)
                out << "wrote " << BuildingReport::WriteCsv(doc, o.csvDir)
                    << (partial ? " (partial results)" : "") << '\n';
            if (doc.NumSpecificUtilities() > 0)
                out << "wrote " << UtilityReport::WriteCsv(doc, o.csvDir)
                    << (partial ? " (partial results)" : "") << '\n';
            if (doc.NumGenericUtilities() > 0)
                out << "wrote " << UtilityReport::WriteGenericCsv(doc, o.csvDir)
                    << (partial ? " (partial results)" : "") << '\n';
        } catch (const std::runtime_error& e) {
            session.Fail(e.what());
            return eExitUsage;
        }
    }
    if (!o.output.empty()) {
        if (partial && SameFile(o.output, o.file)) {
            session.Fail("the run was cancelled; its partial results are not saved over " + o.file);
        } else {
            try {
                ZorvoModelFile::Save(o.output, doc);
                out << "saved " << o.output << (partial ? " (partial results)" : "") << '\n';
            } catch (const CDataFileError& e) {
                session.Fail(e.what());
                return eExitUsage;
            }
        }
    }
    return partial || notFinite ? eExitFindings : eExitOk;
}

} // namespace Tevra
