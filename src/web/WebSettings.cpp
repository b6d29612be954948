#include "web/WebSettings.h"

#include <fstream>
#include <sstream>

#include "core/VbRules.h"

namespace kvlr {

WebSettings DefaultWebSettings() {
  WebSettings s;
  s.pages = {{{"qrc:/help/KVL-R.html#frmKVLBrowser", "KVL"},
              {"https://www.usaswimming.org/", "USA Swimming"},
              {"https://swimswam.com/", "SwimSwam"},
              {"https://www.worldaquatics.com/", "World Aquatics"}}};
  return s;
}

WebSettings ParseWebSettings(std::string_view text) {
  WebSettings s = DefaultWebSettings();
  std::istringstream in{std::string(text)};
  std::string line;
  while (std::getline(in, line)) {
    const size_t eq = line.find('=');
    if (eq == std::string::npos) continue;
    const std::string key = Trim(line.substr(0, eq));
    const std::string value = Trim(line.substr(eq + 1));
    if (key == "Restricted") {
      s.restricted = value == "1" || UCase(value) == "TRUE" || UCase(value) == "YES";
      continue;
    }
    if (key.size() < 5 || key.compare(0, 4, "Page") != 0 || key[4] < '1' || key[4] > '4') continue;
    WebPage& page = s.pages[key[4] - '1'];
    if (key.size() == 5) {
      page.url = value;
    } else if (key.substr(5) == "Name") {
      page.comment = value;
    }
  }
  return s;
}

WebSettings LoadWebSettings(const std::filesystem::path& home) {
  std::ifstream in(home / kWebSettingsFile);
  if (!in) return DefaultWebSettings();
  std::ostringstream text;
  text << in.rdbuf();
  return ParseWebSettings(text.str());
}

}  // namespace kvlr
