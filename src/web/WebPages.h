#pragma once
// The favourite pages of a database (tblWebPages) and the four fixed pages of the tool bar.

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"

namespace kvlr {

struct WebPage {
  std::string url;
  std::string comment;  // the page's title when it was added
};

using FixedPages = std::array<WebPage, 4>;

// Every favourite, in the table's order. Store failures throw.
std::vector<WebPage> LoadWebPages(SQLite::Database& db);

// True when the two addresses name the same page: equal but for one trailing "/".
bool SameAddress(std::string_view a, std::string_view b);

// Add: refused with a message when `url` is one of `fixed` or already a favourite (the
// table compares without case) or longer than the field; otherwise a row with `title` (cut
// to the field, the address when the title is blank). True when a row was added.
bool AddWebPage(AppState& state, const FixedPages& fixed, std::string_view url,
                std::string_view title);

// Delete: asks "Delete <comment> at <url>?"; true when the user said yes and the row is gone.
bool DeleteWebPage(AppState& state, const WebPage& page);

}  // namespace kvlr
