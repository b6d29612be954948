#include "athletes/BackgroundPicture.h"

#include "athletes/AthleteTexts.h"
#include "core/FileOps.h"
#include "core/VbRules.h"

namespace kvlr {
namespace fs = std::filesystem;
namespace txt = athlete_text;

fs::path BackgroundPicturePath(const ProgramHome& home, std::string_view first) {
  return home.Root() / (UCase(Trim(first)) + ".bmp");
}

std::optional<fs::path> CardPicture(const ProgramHome& home, std::string_view first) {
  std::error_code ec;
  if (!Trim(first).empty()) {
    const fs::path own = BackgroundPicturePath(home, first);
    if (fs::exists(own, ec)) return own;
    const std::string wanted = UCase(own.filename().string());
    for (const auto& entry : fs::directory_iterator(home.Root(), ec)) {
      if (UCase(entry.path().filename().string()) == wanted) return entry.path();
    }
  }
  for (const char* name : {"KVL-R.bmp", "KVL-R.BMP"}) {
    if (fs::exists(home.Root() / name, ec)) return home.Root() / name;
  }
  return std::nullopt;
}

bool MayChooseBackgroundPicture(UserIo& io, std::string_view first) {
  if (!Trim(first).empty()) return true;
  io.Tell(txt::kPictureNeedsFirstName);
  return false;
}

bool ImportBackgroundPicture(AppState& state, std::string_view first, const fs::path& chosen) {
  if (!MayChooseBackgroundPicture(*state.io, first)) return false;
  const std::string name = chosen.string();
  if (name.size() < 3 || UCase(name.substr(name.size() - 3)) != "BMP") {
    state.io->Tell(txt::kPictureNotBmp);
    return false;
  }
  std::error_code ec;
  if (!fs::exists(chosen, ec)) return false;
  const fs::path target = BackgroundPicturePath(state.home, first);
  if (fs::equivalent(chosen, target, ec)) return true;
  try {
    CopyFileSafely(chosen, target);
  } catch (const std::exception&) {
    state.io->Tell(std::string(txt::kCannotOpen) + name);
    return false;
  }
  return true;
}

}  // namespace kvlr
