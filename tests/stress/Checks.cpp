#include "Stress.h"

#include <zip.h>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "../interchange/FileMaker.h"

namespace kvlr::stress {

namespace fs = std::filesystem;

namespace {

bool EndsWithNoCase(std::string_view name, std::string_view tail) {
  return name.size() >= tail.size() &&
         std::equal(tail.begin(), tail.end(), name.end() - tail.size(), [](char a, char b) {
           return std::toupper(static_cast<unsigned char>(a)) ==
                  std::toupper(static_cast<unsigned char>(b));
         });
}

// Copies a zip member to `to`; libzip checks the CRC when the last byte is read.
std::string Extract(zip_t* archive, zip_uint64_t index, const fs::path& to) {
  std::unique_ptr<zip_file_t, decltype(&zip_fclose)> member(zip_fopen_index(archive, index, 0),
                                                            &zip_fclose);
  if (!member) return std::string("can't open member: ") + zip_strerror(archive);
  std::ofstream out(to, std::ios::binary);
  char buffer[1 << 16];
  for (;;) {
    const zip_int64_t n = zip_fread(member.get(), buffer, sizeof buffer);
    if (n < 0) return std::string("can't read member: ") + zip_file_strerror(member.get());
    if (n == 0) break;
    out.write(buffer, n);
  }
  return out.flush() ? "" : "can't write " + to.string();
}

}  // namespace

std::string IntegrityProblem(const fs::path& db) {
  if (!fs::exists(db)) return db.string() + " is missing";
  try {
    SQLite::Database open(db.string(), SQLite::OPEN_READWRITE);
    SQLite::Statement check(open, "PRAGMA integrity_check");
    std::string words;
    while (check.executeStep()) words += check.getColumn(0).getString() + "; ";
    return words == "ok; " ? "" : "integrity_check of " + db.string() + ": " + words;
  } catch (const std::exception& e) {
    return "can't check " + db.string() + ": " + e.what();
  }
}

std::string RowCounts(const fs::path& db) {
  try {
    SQLite::Database open(db.string(), SQLite::OPEN_READONLY);
    SQLite::Statement tables(open,
                             "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT "
                             "LIKE 'sqlite_%' ORDER BY name");
    std::string counts;
    while (tables.executeStep()) {
      const std::string name = tables.getColumn(0).getString();
      // A table name can't be bound; this one comes from the file's own catalogue.
      const long long rows = open.execAndGet("SELECT COUNT(*) FROM \"" + name + "\"").getInt64();
      counts += (counts.empty() ? "" : ", ") + name + " " + std::to_string(rows);
    }
    return counts;
  } catch (const std::exception& e) {
    return "can't count rows of " + db.string() + ": " + e.what();
  }
}

std::string QueryText(const fs::path& db, const std::string& sql) {
  try {
    SQLite::Database open(db.string(), SQLite::OPEN_READONLY);
    SQLite::Statement q(open, sql);
    return q.executeStep() ? q.getColumn(0).getString() : "";
  } catch (const std::exception& e) {
    return std::string("error: ") + e.what();
  }
}

std::string ZipProblem(const fs::path& zip, const fs::path& scratch) {
  int error = 0;
  std::unique_ptr<zip_t, decltype(&zip_discard)> archive(
      zip_open(zip.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &error), &zip_discard);
  if (!archive) {
    zip_error_t words;
    zip_error_init_with_code(&words, error);
    const std::string text = zip.string() + " is not a readable zip: " + zip_error_strerror(&words);
    zip_error_fini(&words);
    return text;
  }
  int databases = 0;
  const zip_int64_t members = zip_get_num_entries(archive.get(), 0);
  for (zip_int64_t i = 0; i < members; ++i) {
    const char* name = zip_get_name(archive.get(), static_cast<zip_uint64_t>(i), 0);
    if (!name || !EndsWithNoCase(name, ".mdb")) continue;
    ++databases;
    const fs::path copy = scratch / "member.mdb";
    std::string problem = Extract(archive.get(), static_cast<zip_uint64_t>(i), copy);
    if (problem.empty()) problem = IntegrityProblem(copy);
    std::error_code ignored;
    fs::remove(copy, ignored);
    if (!problem.empty()) return zip.string() + " member " + name + ": " + problem;
  }
  return databases > 0 ? "" : zip.string() + " holds no database";
}

std::vector<fs::path> Archives(const std::vector<fs::path>& folders) {
  std::vector<fs::path> found;
  for (const fs::path& folder : folders) {
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(folder, ec)) {
      const std::string name = entry.path().filename().string();
      if ((name.starts_with("KVL-RBkup") || name.starts_with("KVL-RArchive")) &&
          EndsWithNoCase(name, ".zip")) {
        found.push_back(entry.path());
      }
    }
  }
  std::sort(found.begin(), found.end());
  return found;
}

std::vector<std::string> Leftovers(const fs::path& home, std::vector<fs::path> folders) {
  std::vector<std::string> found;
  folders.push_back(home);
  for (const fs::path& folder : folders) {
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(folder, ec)) {
      const std::string name = entry.path().filename().string();
      if (name.find(".part-") != std::string::npos || EndsWithNoCase(name, "KVLNEW.MDB")) {
        found.push_back(entry.path().string());
      }
    }
  }
  std::error_code ec;
  for (const auto& entry : fs::directory_iterator(home / "KVL-RTemp", ec)) {
    if (entry.path().filename().string().starts_with("run-")) {
      found.push_back(entry.path().string());
    }
  }
  return found;
}

std::string MeetText(std::string_view meet_name, std::string_view start, int swims, int strangers) {
  static const char* const kDistances[] = {"50", "100", "200"};
  testing::SdifFile file;
  file.Meet({{"meet_name", meet_name}, {"start", start}, {"end", start}});
  file.Team();
  // Strangers first, so a kill early in the run lands before the family's writes.
  for (int i = 0; i < strangers; ++i) {
    const std::string name = "STRANGER" + std::to_string(i) + ", PAT";
    file.Swim({{"swimmer_name", name},
               {"birth", "03042013"},
               {"event_number", std::to_string(i % 900 + 1)},
               {"swim_date", start}},
              false);
  }
  for (int i = 0; i < swims; ++i) {
    const std::string event = std::to_string(i + 1);
    const std::string distance = kDistances[i % 3];
    const std::string stroke = std::to_string(i / 3 % 5 + 1);
    const std::string final_time = "1:" + std::to_string(10 + i % 40) + ".25";
    const std::string prelim_time = "1:" + std::to_string(11 + i % 40) + ".50";
    file.Swim({{"distance", distance},
               {"stroke", stroke},
               {"event_number", event},
               {"swim_date", start},
               {"prelim_time", prelim_time},
               {"prelim_course", "Y"},
               {"prelim_place", "4"},
               {"finals_time", final_time}});
  }
  return file.Text();
}

void WriteFile(const fs::path& file, const std::string& text) {
  std::ofstream out(file, std::ios::binary);
  out << text;
  if (!out.flush()) throw std::runtime_error("can't write " + file.string());
}

void WriteZip(const fs::path& zip, const std::string& member, const std::string& text) {
  int error = 0;
  zip_t* archive = zip_open(zip.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  if (!archive) throw std::runtime_error("can't make " + zip.string());
  zip_source_t* source = zip_source_buffer(archive, text.data(), text.size(), 0);
  if (!source || zip_file_add(archive, member.c_str(), source, ZIP_FL_ENC_UTF_8) < 0) {
    if (source) zip_source_free(source);
    const std::string words = zip_strerror(archive);
    zip_discard(archive);
    throw std::runtime_error("can't add " + member + " to " + zip.string() + ": " + words);
  }
  // The buffer is read only now, while `text` is still alive.
  if (zip_close(archive) != 0) {
    const std::string words = zip_strerror(archive);
    zip_discard(archive);
    throw std::runtime_error("can't write " + zip.string() + ": " + words);
  }
}

}  // namespace kvlr::stress
