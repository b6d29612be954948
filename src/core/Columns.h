#pragma once
// Reading a column of a store row where a Null means "nothing".

#include <optional>
#include <string>

#include <SQLiteCpp/Column.h>

#include "core/Date.h"

namespace kvlr {

// The text of a column; "" for Null.
inline std::string TextOf(const SQLite::Column& c) {
  return c.isNull() ? "" : c.getString();
}

// The date of an ISO date column; nullopt for Null or a value that isn't a date.
inline std::optional<Date> DateOf(const SQLite::Column& c) {
  return c.isNull() ? std::nullopt : Date::FromIso(c.getString());
}

}  // namespace kvlr
