#pragma once
// Made-up meet files for the stress runs. The family's swimmer is "DOE, JANE A", born
// 2014-01-02; everyone else is a stranger the import reads and passes by.

#include <filesystem>
#include <string>
#include <string_view>

namespace kvlr::stress {

// A Commlink results file of one meet starting on `start` (MMDDYYYY): `swims` events of
// the family's swimmer, each with a prelim and a final, among `strangers` swims of others.
std::string MeetText(std::string_view meet_name, std::string_view start, int swims, int strangers);

// Writes `text` to `file`; throws std::runtime_error when it can't.
void WriteFile(const std::filesystem::path& file, const std::string& text);

// A zip at `zip` holding `text` as its one member `member`; throws std::runtime_error
// with libzip's words when the archive can't be written.
void WriteZip(const std::filesystem::path& zip, const std::string& member, const std::string& text);

}  // namespace kvlr::stress
