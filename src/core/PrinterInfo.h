#pragma once
// The machine's report printer, kept in "KVL-Rprint.mem": device, driver and port, a line each.

#include "core/AppState.h"

namespace kvlr {

// Reads the printer file, each line trimmed. Without a file the default printer's names are
// taken and written to it. An unreadable file gives three empty names.
PrinterNames GetPrinterInfo(const ProgramHome& home, const PrinterNames& default_printer);

// Writes the three names; false (and nothing changed) when the file can't be written.
bool SavePrinterInfo(const ProgramHome& home, const PrinterNames& printer);

}  // namespace kvlr
