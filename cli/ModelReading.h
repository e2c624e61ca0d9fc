#pragma once

#include <memory>

#include "Arguments.h"
#include "ModelCounts.h"
#include "Progress.h"
#include "SourceOpening.h"
#include "ZORModelCheck.h"

namespace cli {

/// What a reader warned of; the user has been told.
struct ReaderWarning {
    std::string where;
    std::string text;
};

/// A model that was read and found sound, with what there is to say about it.
struct ReadModel {
    std::unique_ptr<ZORModel> model;
    readers::LossReport losses;
    std::vector<readers::Unselected> unselected;
    std::vector<ReaderWarning> warnings;
    ModelCounts counts;
};

/// The option by which that part of a selection is given.
std::string_view optionFor(readers::SelectionPart part);

/// Reads the source as the arguments ask. Warnings go to the console. Throws Failure when the source cannot
/// be read, the model is unsound for the views, or an option does not fit the reader.
ReadModel readModel(const OpenedSource& source, const Arguments& arguments, Console& console,
                    Progress& progress, ZORViewsToCheck views = ZORViewsToCheck::ALL_BUT_UML);

/// Throws Failure when no table, view or class was read, unless the arguments allow it.
void requireContent(const ReadModel& read, const OpenedSource& source, const Arguments& arguments);

/// Tells what the model cannot hold: each thing on a verbose console, else the sum in one line.
void printLosses(const readers::LossReport& losses, const std::string& sourceName, Console& console);

/// The exit code of a run that has done its work; with --strict, says why it is FINDINGS.
ExitCode concludeRun(const ReadModel& read, const std::string& sourceName, const Arguments& arguments,
                     Console& console);

}  // namespace cli
