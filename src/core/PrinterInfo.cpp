#include "core/PrinterInfo.h"

#include <fstream>

#include <fmt/format.h>

#include "core/Errors.h"
#include "core/FileOps.h"
#include "core/VbRules.h"

namespace kvlr {

PrinterNames GetPrinterInfo(const ProgramHome& home, const PrinterNames& default_printer) {
  std::error_code ec;
  if (!std::filesystem::exists(home.PrintFile(), ec)) {
    SavePrinterInfo(home, default_printer);
    return default_printer;
  }
  std::ifstream in(home.PrintFile());
  if (!in) return {};
  PrinterNames names;
  std::string line;
  for (std::string* field : {&names.device, &names.driver, &names.port}) {
    if (!std::getline(in, line)) break;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    *field = Trim(line);
  }
  return names;
}

bool SavePrinterInfo(const ProgramHome& home, const PrinterNames& printer) {
  try {
    WriteFileAtomically(home.PrintFile(),
                        fmt::format("{}\n{}\n{}\n", printer.device, printer.driver, printer.port));
    return true;
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace kvlr
