#pragma once

#include "host/HostSession.h"

#include <string>
#include <vector>

namespace Tevra {

// The commands of zorvo, one file each, over one HostSession. Each answers the exit
// status (EExitStatus).

// Errors and warnings of a project, the library's and the host's own.
int CheckCommand(HostSession& session, const std::string& file);

struct SSolveOptions {
    std::string file;
    std::string output; // the solved project, when given
    std::string csvDir; // the result tables, when given
    int threads = 0;    // 0: every core
    // Segments to join to the one before them, "B/O/S": building, vertical offset and
    // segment, numbered from 1.
    std::vector<std::string> joins;
};
// Checks and solves a project, joins the building segments asked for, prints a summary
// of the movements and of each building, writes the tables and saves the project.
int SolveCommand(HostSession& session, const SSolveOptions& options);

// A project from one form of the model file into the other.
int ConvertCommand(HostSession& session, const std::string& in, const std::string& out);

// What a project holds.
int InfoCommand(HostSession& session, const std::string& file);

struct SImportOptions {
    std::string model;  // the project
    std::string csv;    // the points: X, Y, Z, dX, dY, dZ (m) a line
    std::string name;   // the set's name; the CSV file's name when empty
    std::string stages; // stage numbers that include the set, such as "1 to 3 5"
    std::string output; // the project with the set
};
// Adds a set of imported displacements read from a CSV file to a project, included in
// the base model and in the stages named, and saves the project.
int ImportCommand(HostSession& session, const SImportOptions& options);

} // namespace Tevra
