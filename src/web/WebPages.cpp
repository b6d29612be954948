#include "web/WebPages.h"

#include <SQLiteCpp/Statement.h>

#include "web/WebTexts.h"

namespace kvlr {
namespace {
constexpr size_t kUrlSize = 100;
constexpr size_t kCommentSize = 50;

size_t Utf8Length(std::string_view text) {
  size_t n = 0;
  for (unsigned char c : text) n += (c & 0xC0) != 0x80;
  return n;
}

// At most `chars` characters, never cutting one in half.
std::string Utf8Left(std::string_view text, size_t chars) {
  size_t n = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80 && n++ == chars) {
      return std::string(text.substr(0, i));
    }
  }
  return std::string(text);
}

std::string_view NoTrailingSlash(std::string_view s) {
  if (!s.empty() && s.back() == '/') s.remove_suffix(1);
  return s;
}
}  // namespace

std::vector<WebPage> LoadWebPages(SQLite::Database& db) {
  std::vector<WebPage> pages;
  SQLite::Statement q(db, "SELECT URL, Comment FROM tblWebPages");
  while (q.executeStep()) {
    pages.push_back({q.getColumn(0).getString(), q.getColumn(1).getString()});
  }
  return pages;
}

bool SameAddress(std::string_view a, std::string_view b) {
  return NoTrailingSlash(a) == NoTrailingSlash(b);
}

bool AddWebPage(AppState& state, const FixedPages& fixed, std::string_view url,
                std::string_view title) {
  for (const WebPage& page : fixed) {
    if (!page.url.empty() && SameAddress(page.url, url)) {
      state.io->Tell(web_text::kOnToolbar);
      return false;
    }
  }
  SQLite::Database& db = *state.gDb;
  SQLite::Statement seek(db, "SELECT COUNT(*) FROM tblWebPages WHERE URL = ?");
  seek.bind(1, std::string(url));
  seek.executeStep();
  if (seek.getColumn(0).getInt() > 0) {
    state.io->Tell(web_text::kAlreadyFavorite);
    return false;
  }
  // A cut address would lead somewhere else.
  if (Utf8Length(url) > kUrlSize) {
    state.io->Tell(web_text::kUrlTooLong);
    return false;
  }
  SQLite::Statement add(db, "INSERT INTO tblWebPages (URL, Comment) VALUES (?, ?)");
  add.bind(1, std::string(url));
  add.bind(2, Utf8Left(title.find_first_not_of(' ') == std::string_view::npos ? url : title,
                       kCommentSize));
  add.exec();
  return true;
}

bool DeleteWebPage(AppState& state, const WebPage& page) {
  const std::string question = std::string(web_text::kDeletePrefix) + page.comment +
                               std::string(web_text::kDeleteAt) + page.url + "?";
  if (!state.io->AskYesNo(question, web_text::kDeleteTitle)) return false;
  SQLite::Statement del(*state.gDb, "DELETE FROM tblWebPages WHERE URL = ?");
  del.bind(1, page.url);
  return del.exec() > 0;
}

}  // namespace kvlr
