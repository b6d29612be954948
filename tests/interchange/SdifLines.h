#pragma once
// Made-up interchange lines for tests: a blank line of the format's width with fields
// placed at their columns (counted from 1).

#include <initializer_list>
#include <string>
#include <string_view>

#include "interchange/Cl2CheckSum.h"

namespace kvlr::testing {

struct Put {
  int col;
  std::string_view text;
};

inline std::string SdifLine(std::string_view code, std::initializer_list<Put> fields,
                            size_t width = 160) {
  std::string line(width, ' ');
  line.replace(0, code.size(), code);
  for (const Put& f : fields) line.replace(static_cast<size_t>(f.col - 1), f.text.size(), f.text);
  return line;
}

// The same line with its Commlink check sum in columns 159-160.
inline std::string Cl2Line(std::string line) {
  line.replace(158, 2, *CL2CheckSum(line));
  return line;
}

}  // namespace kvlr::testing
