#pragma once
// The words of the record store: its questions, refusals and progress lines.

#include <string>
#include <string_view>

namespace kvlr::store_text {

inline constexpr std::string_view kNotValidDatabase = "Not a valid KVL-R Database.";
inline constexpr std::string_view kAttemptRepair = "Attempt to Repair it?";
inline constexpr std::string_view kOpenedExclusively =
    " Database already opened exclusively by another user.";
inline constexpr std::string_view kDidntCreateDatabase = "Didn't create Database";
inline constexpr std::string_view kImportRulesMissing = "Required KVL-Rimprul.txt file not found.";
inline constexpr std::string_view kErrorCheckingReportTables = "Error checking Report Tables";
inline constexpr std::string_view kErrorCheckingSystemTables = "Error Checking System Tables";
inline constexpr std::string_view kImportReasonsWord = "Report Import Reasons";

inline constexpr std::string_view kCheckingSystemTables = "Checking System Tables";
inline constexpr std::string_view kCheckingReportTables = "Checking Report tables...";
inline constexpr std::string_view kCheckingWkReportTables = "Checking WK Report tables...";
inline constexpr std::string_view kRepairing = "Repairing Database...";
inline constexpr std::string_view kCompacting = "Compacting Database...";
inline constexpr std::string_view kOpeningFiles = "Opening Files...";
inline constexpr std::string_view kCompactingNotes = "Compacting Workout Notes...";
inline constexpr std::string_view kReranking = "Reranking Individual Results...";
inline constexpr std::string_view kOptimizationCompleted = "Database Optimization Completed.";
inline constexpr std::string_view kNotEnoughRoom =
    "There is not enough extra disk space available to optimize/repair this database.";

// "Problem Creating the <word> Table" + CR LF + the store's text.
std::string ProblemCreating(std::string_view word, std::string_view store_text);
// "Problem adding Field: <field> to Table: <table>".
std::string ProblemAddingField(std::string_view field, std::string_view table);
// The disk-room refusal of repair, figures in Kbytes.
std::string DiskRoomMessage(long long free_kb, std::string_view drive, long long needed_kb);
// A database another process holds past the wait, named; what to do about it.
std::string InUseByAnother(std::string_view file);
// A write that found the disk full; nothing was changed.
std::string DiskFull(std::string_view file);
// "#,##0": thousands with commas.
std::string Thousands(long long value);

}  // namespace kvlr::store_text
