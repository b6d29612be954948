#include "interchange/ImportPrepare.h"

#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/Statement.h>

#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/Errors.h"
#include "core/VbRules.h"
#include "interchange/Cl2CheckSum.h"
#include "interchange/ImportChoice.h"
#include "interchange/ImportRun.h"
#include "interchange/MeetFileLines.h"
#include "interchange/Nv3AthleteCheck.h"
#include "interchange/Nv3CheckSum.h"
#include "interchange/Nv3Records.h"
#include "interchange/Nv3Texts.h"
#include "interchange/Psn.h"
#include "interchange/Scramble.h"
#include "interchange/SdifCertify.h"
#include "interchange/SdifChecks.h"
#include "interchange/SdifRecords.h"
#include "interchange/SdifTexts.h"
#include "interchange/SwimmerMatch.h"

namespace kvlr {

namespace {

namespace fs = std::filesystem;
namespace ct = certify_text;

constexpr std::string_view kInitialFileCheck = "Initial File Check... ";
constexpr std::string_view kNotValidForImport = "Not valid for Import.";
constexpr std::string_view kToImport = "Import";
constexpr std::string_view kToPrint = "Print";
constexpr std::string_view kCheckSource = "frmImpCL.CheckImportFile";
std::string NotNorvanCl2Text() {
  return std::string(sdif::kNotNorvanCl2) + "\r\n\r\n" + std::string(sdif::kAskForSd3) + "\r\n" +
         std::string(sdif::kOnlyNorvanCl2);
}

// `CheckImportFile`: the lines of `in` up to the first Z0 into file.lines, each tested as
// its format asks. False once the user was told why not.
bool CheckImportFile(AppState& state, ImportFile& file, MeetFileLines& in, bool allow_entries,
                     bool use_fallback) {
  UserIo& io = *state.io;
  const std::string& ext = file.extension;
  const bool cl2 = ext == ".CL2", sd3 = ext == ".SD3", nv3 = ext == ".NV3", txt = ext == ".TXT",
             psn = ext == ".PSN";
  const std::optional<size_t> length = LineLengthFor(ext);
  auto nv3_line_good = [&](std::string_view line) {
    return use_fallback ? CheckNV3LineFallback(line) : CheckNV3Line(line);
  };

  std::string read;
  if (!in.Next(read)) {
    io.Tell(file.path.filename().string() + std::string(kEmptyMeetFile));
    return false;
  }
  std::string_view line = read;

  // The first line.
  std::string unscrambled;
  if (cl2 || sd3) {
    SdifA0 a0;
    LoadA0Rec(line, state.gDateOrder, a0);
    const A0Check check = CheckA0(cl2 ? 0 : 1, a0, allow_entries);
    if (!check.ok) {
      io.Tell(check.problem);
      return false;
    }
    if (cl2 && CheckCL2Line(line) != Cl2Line::kGood) {
      io.Tell(sdif::kFailedIntegrity);
      return false;
    }
  } else if (nv3 || txt) {
    if (txt) {
      const auto plain = UnscrambleLine(line);
      if (!plain) {
        io.Tell(kNv3IntegrityCompromised);
        return false;
      }
      unscrambled = *plain;
      line = unscrambled;
    }
    const Nv3HeaderCheck header = CheckNV3Header(line, allow_entries);
    if (!header.message.empty()) io.Tell(header.message);
    if (!header.ok) return false;
    if (nv3 && !nv3_line_good(line)) {
      io.Tell(kNv3IntegrityCompromised);
      return false;
    }
  } else if (psn) {
    if (!CheckPSNHeader(state, line)) return false;
  } else {
    io.Tell(std::string(file.path.filename().string()) + "Not a valid filename");
    return false;
  }
  if (length) file.lines.reserve(in.Size() / (*length + 2) + 1);
  file.lines.emplace_back(line);

  // Every following line.
  const bool z0_ends = cl2 || sd3;
  bool ended = false;
  while (in.Next(read)) {
    line = read;
    if (length && line.size() != *length) {
      io.Tell(LineLengthMessage(*length, line.size()));
      return false;
    }
    if (cl2) {
      const Cl2Line judged = CheckCL2Line(line);
      if (judged == Cl2Line::kNotNorvan) {
        io.Tell(NotNorvanCl2Text());
        return false;
      }
      if (judged != Cl2Line::kGood) {
        io.Tell(sdif::kFailedIntegrity);
        return false;
      }
    } else if (nv3) {
      if (!nv3_line_good(line)) {
        io.Tell(kNv3IntegrityCompromised);
        return false;
      }
    } else if (txt) {
      const auto plain = UnscrambleLine(line);
      if (!plain) {
        io.Tell(kNv3IntegrityCompromised);
        return false;
      }
      unscrambled = *plain;
      line = unscrambled;
    }
    file.lines.emplace_back(line);
    if (line.size() >= 2 && line[0] == 'Z' && line[1] == '0') {
      ended = true;
      break;
    }
  }
  // The end of the file is accepted as its end; without a Z0 it may have been cut short.
  file.no_end_record = z0_ends && !ended;
  return true;
}

std::vector<FamilyMember> ReadFamily(AppState& state) {
  std::vector<FamilyMember> family;
  if (!state.gDb) return family;
  SQLite::Statement q(*state.gDb, "select Athlete,first,Pref from athlete order by first");
  while (q.executeStep()) {
    family.push_back({UCase(Trim(q.getColumn(1).getString())),
                      UCase(Trim(q.getColumn(2).getString())), q.getColumn(0).getInt()});
  }
  return family;
}

// The panel of an NV3 file from its header (A1) and, when it is one, the meet (B1).
FilePanel Nv3Panel(const ImportFile& file, int date_order) {
  FilePanel panel;
  panel.file_name = file.path.filename().string();
  if (file.lines.empty()) return panel;
  const Nv3Header header = LoadNV3A1Rec(file.lines.front());
  panel.created_by = header.creator;
  const std::string version = Trim(header.version);
  if (!version.empty()) panel.created_by += " " + version;
  panel.file_type = header.kind;
  if (file.lines.size() > 1 && file.lines[1].compare(0, 2, "B1") == 0) {
    const Nv3Meet meet = LoadNV3B1Rec(file.lines[1], date_order);
    panel.meet_name = meet.name;
    panel.start_date = meet.start && *meet.start != kNv3BlankDate
                           ? ShownDate(*meet.start, date_order)
                           : Trim(meet.start_text);
    if (meet.start && *meet.start != kNv3BlankDate) panel.start = meet.start;
  }
  return panel;
}

void SetStatus(ImportFile& file, ImportMonitor& monitor, std::string status) {
  file.status = std::move(status);
  monitor.Status(file.status);
}

// Step 5 of choosing a file, by its kind, once its lines are read.
void CertifyByKind(AppState& state, ImportMonitor& monitor, ImportFile& file, bool report,
                   bool allow_entries) {
  const fs::path& path = file.path;
  const std::string& ext = file.extension;
  if (ext == ".CL2" || ext == ".SD3") {
    file.panel = ShowFileStatistics(file.lines, path, state.gDateOrder, state.io);
    file.roster = IsRosterFile(file.lines.front());
    if (!file.panel.valid_for_import) {
      SetStatus(file, monitor, std::string(ct::kNoValidForImport));
      return;
    }
    std::optional<SwimmerMatcher> matcher;
    if (!report) {
      matcher.emplace(CurrentSwimmer{state.gAthlete, state.gAthleteFirst, state.gAthleteLast,
                                     state.gAthleteSex},
                      ReadFamily(state), false);
    }
    const SdifCheckResult check =
        SDIFCheck(file.lines, allow_entries, ext, report, state.gDateOrder,
                  matcher ? &*matcher : nullptr, monitor, *state.io);
    file.counts = check.counts;
    file.has_relays = check.has_relays;
    file.status = check.status;
    file.ready = check.ok;
    return;
  }
  if (ext == ".NV3" || ext == ".TXT") {
    file.counts = ImportCounts{};
    monitor.Counts(file.counts);
    file.panel = Nv3Panel(file, state.gDateOrder);
    if (Trim(Nv3Columns(file.lines.front(), 3, 4)) == "04") {
      state.io->Tell(kNotValidForImport);
      return;
    }
    if (!report) {
      SwimmerMatcher matcher(CurrentSwimmer{state.gAthlete, state.gAthleteFirst, state.gAthleteLast,
                                            state.gAthleteSex},
                             ReadFamily(state), false);
      if (!NV3AthleteCheck(state, monitor, file.lines, matcher, path.filename().string())) return;
    }
    SetStatus(file, monitor,
              std::string(ct::kImportFileChecked) + std::string(report ? kToPrint : kToImport));
    file.ready = true;
    return;
  }
  // .PSN: its header was checked with the lines.
  file.panel.file_name = path.filename().string();
  file.panel.created_by = std::string(kPsnCreatedBy);
  file.panel.file_type = std::string(kPsnFileType);
  SetStatus(file, monitor, std::string(ct::kImportFileChecked) + std::string(kToImport));
  file.ready = true;
}

}  // namespace

ImportFile PrepareImportFile(AppState& state, ImportMonitor& monitor, const fs::path& path,
                             ImportMode mode) {
  ImportFile file;
  file.path = path;
  file.extension = ImportExtension(path);
  const bool report = mode == ImportMode::kReport;
  // A report may show any file, entries included; an import takes only results.
  const bool allow_entries = report;
  SetStatus(file, monitor, std::string(kInitialFileCheck));
  try {
    MeetFileLines in(path);
    // Refused by its size before a byte is read: reading it would take its size in memory.
    if (in.Size() > kMaxMeetFileBytes) {
      state.io->Tell(MeetFileTooLargeText(path));
      return file;
    }
    if (!CheckImportFile(state, file, in, allow_entries, false)) {
      file.lines.clear();
      return file;
    }
    CertifyByKind(state, monitor, file, report, allow_entries);
  } catch (const std::exception& e) {
    ReportError(state, kCheckSource, e);
    file.ready = false;
    return file;
  }
  if (file.ready && file.no_end_record) {
    const std::string warning = path.filename().string() + std::string(kNoEndRecord);
    if (report) {
      // A report changes nothing: it shows what there is, with the warning.
      state.io->Tell(warning);
    } else if (!state.io->AskYesNo(warning + "\n" + std::string(kImportWhatItHoldsAsk))) {
      file.ready = false;
      SetStatus(file, monitor, warning);
    }
  }
  return file;
}

}  // namespace kvlr
