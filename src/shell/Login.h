#pragma once
// Who may log in, and the way out of the program.

#include <string>
#include <vector>

#include "core/AppState.h"

namespace kvlr {

struct LoginRow {
  int32_t athlete = 0;
  std::string name;  // display name
};

// The swimmers of the open database ordered by first name; gAthleteCount takes the count.
std::vector<LoginRow> LoginRows(AppState& state);

// Makes `athlete` current (0 clears the current swimmer). False when no such swimmer.
bool LogIn(AppState& state, int32_t athlete);

// The last steps of the way out: remember the database, the printer if it changed, close
// the files, empty the big report tables.
void LeaveProgram(AppState& state, const PrinterNames& printer_at_start);

}  // namespace kvlr
