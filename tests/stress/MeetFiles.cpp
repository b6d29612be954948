#include "MeetFiles.h"

#include <zip.h>

#include <fstream>
#include <stdexcept>

#include "../interchange/FileMaker.h"

namespace kvlr::stress {

namespace fs = std::filesystem;

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
