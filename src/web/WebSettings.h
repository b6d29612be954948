#pragma once
// Settings of the installation for the web window, kept in the program home as
// KVL-Rweb.ini: lines "Page1Name=", "Page1=" to "Page4", and "Restricted=1" to lock it.

#include <filesystem>
#include <string_view>

#include "web/WebPages.h"

namespace kvlr {

struct WebSettings {
  FixedPages pages;  // url and button caption (in `comment`)
  bool restricted = false;
};

// The pages a new installation starts with: the program's own page on updates, the national
// swimming body, a swimming news site and the world body.
WebSettings DefaultWebSettings();

// Defaults overridden by the lines of `text`; unknown or malformed lines are skipped.
WebSettings ParseWebSettings(std::string_view text);

// The settings file in `home`, or the defaults when there is none or it can't be read.
WebSettings LoadWebSettings(const std::filesystem::path& home);

inline constexpr std::string_view kWebSettingsFile = "KVL-Rweb.ini";

}  // namespace kvlr
