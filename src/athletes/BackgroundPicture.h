#pragma once
// The picture shown behind the main window for a swimmer: a .bmp in the program home named
// by the first name.

#include <filesystem>
#include <optional>
#include <string_view>

#include "core/AppState.h"

namespace kvlr {

// The home's file for first name `first`: trimmed, upper-cased, + ".bmp" (the name the
// state keeps as gAthleteFirst).
std::filesystem::path BackgroundPicturePath(const ProgramHome& home, std::string_view first);

// What the card shows: the swimmer's picture (its name compared without regard to case),
// else "KVL-R.bmp", else "KVL-R.BMP" of the home; nullopt when none exists.
std::optional<std::filesystem::path> CardPicture(const ProgramHome& home, std::string_view first);

// True when a picture may be chosen: the first name isn't blank (else the words are told).
bool MayChooseBackgroundPicture(UserIo& io, std::string_view first);

// `cmdGetPic` after the file dialog: `chosen` must end in "bmp" (any case) and is copied over
// the swimmer's picture. A chosen file that doesn't exist changes nothing. False, with the
// words told, when refused or when the file can't be read ("Cannot open " + the file).
bool ImportBackgroundPicture(AppState& state, std::string_view first,
                             const std::filesystem::path& chosen);

}  // namespace kvlr
