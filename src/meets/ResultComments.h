#pragma once
// The one comment (tblComments, at most 50 characters) of a result, as frmComments keeps it.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <SQLiteCpp/Database.h>

namespace kvlr {

inline constexpr size_t kCommentSize = 50;

// The comment of result `result_id`; nullopt when it has no row. Store failures throw.
std::optional<std::string> LoadComment(SQLite::Database& db, int64_t result_id);

// Writes the comment (cut to 50 characters), adding the row when there is none; an empty
// text leaves an empty comment row. Store failures throw.
void SaveComment(SQLite::Database& db, int64_t result_id, std::string_view text);

}  // namespace kvlr
