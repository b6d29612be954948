#pragma once
// A big made-up Commlink meet file for the benchmarks: hundreds of teams, one family
// (DOE) among them. Lines are placed column by column and given their check sums.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "interchange/Cl2CheckSum.h"

namespace kvlr::bench {

class BigMeetFile {
 public:
  // About `megabytes` of lines; the family's swimmer is "DOE, JANE" (F) with eight swims,
  // each with two G0 lines of splits, and a lead-off leg.
  static std::vector<std::string> Lines(int megabytes) {
    std::vector<std::string> out;
    const size_t want = static_cast<size_t>(megabytes) * 1000 * 1000 / 162;
    out.push_back(Line("A0", {{4, "V3"},
                              {12, "02"},
                              {44, "Norvan, Ltd"},
                              {74, "Pat Example"},
                              {94, "555-0100"},
                              {106, "11222026"},
                              {150, "PL42"}}));
    out.push_back(Line("B1", {{12, "Big Made-Up Championship"},
                              {86, "Springfield"},
                              {122, "11012026"},
                              {130, "11042026"},
                              {150, "Y"}}));
    int teams = 0, swims = 0, relays = 0, splits = 0;
    static const char* const kStrokes = "12345";
    for (int team = 0; out.size() < want; ++team) {
      char code[8];
      std::snprintf(code, sizeof code, "T%03d", team % 1000);
      out.push_back(Line("C1", {{12, "ZZ"}, {14, code}, {18, "Made Up Aquatics"}}));
      ++teams;
      for (int swimmer = 0; swimmer < 60; ++swimmer) {
        const bool family = team == 150 && swimmer == 0;
        char name[29];
        std::snprintf(name, sizeof name, "%s", family ? "DOE, JANE A" : "");
        if (!family) std::snprintf(name, sizeof name, "SWIMMER%03d%02d, PAT", team % 1000, swimmer);
        for (int e = 0; e < 8; ++e) {
          char event[4], distance[5], time[9];
          std::snprintf(event, sizeof event, "%3d", e + 1);
          std::snprintf(distance, sizeof distance, "%4d", e < 4 ? 50 : 100);
          std::snprintf(time, sizeof time, "%8s", e < 4 ? "30.15" : "1:05.32");
          out.push_back(Line("D0", {{12, name},
                                    {56, "01022014"},
                                    {64, "12"},
                                    {66, "F"},
                                    {67, "F"},
                                    {68, distance},
                                    {72, std::string(1, kStrokes[e % 5])},
                                    {73, event},
                                    {77, "1112"},
                                    {81, "11012026"},
                                    {98, time},
                                    {106, "Y"},
                                    {116, time},
                                    {124, "Y"},
                                    {133, "  4"},
                                    {136, "  2"}}));
          out.push_back(Line("D3", {{3, "MADEUP00001"}}));
          ++swims;
          if (family) {
            for (const char* seq : {"1", "2"}) {
              out.push_back(Line("G0", {{16, name},
                                        {56, seq},
                                        {57, "12"},
                                        {59, "  25"},
                                        {63, "C"},
                                        {64, "   15.00"},
                                        {72, "   30.15"},
                                        {144, "F"}}));
              ++splits;
            }
          }
        }
      }
      for (int r = 0; r < 4; ++r) {
        char event[4];
        std::snprintf(event, sizeof event, "%3d", 20 + r);
        out.push_back(Line("E0", {{12, "A"},
                                  {13, "ZZ"},
                                  {15, code},
                                  {19, " 4"},
                                  {21, "F"},
                                  {22, " 200"},
                                  {26, r % 2 ? "7" : "6"},
                                  {27, event},
                                  {31, "1112"},
                                  {38, "11012026"},
                                  {73, " 2:10.00"},
                                  {81, "Y"}}));
        ++relays;
        for (int leg = 1; leg <= 4; ++leg) {
          const bool family = team == 150 && leg == 1;
          out.push_back(Line("F0", {{16, "ZZ"},
                                    {18, code},
                                    {23, family ? "DOE, JANE A" : "ROE, ANN"},
                                    {66, "01022014"},
                                    {74, "12"},
                                    {76, "F"},
                                    {77, "0"},
                                    {78, "0"},
                                    {79, std::to_string(leg)},
                                    {80, "   32.50"},
                                    {88, "Y"}}));
        }
      }
    }
    char counts[96];
    std::snprintf(counts, sizeof counts, "%3d%3d%4d%4d%6d%6d%5d%6d%6d", 1, 1, teams, teams, swims,
                  swims, relays, relays * 4, splits);
    out.push_back(Line("Z0", {{12, "02"}, {44, counts}}));
    return out;
  }

  static void Write(const std::filesystem::path& file, const std::vector<std::string>& lines) {
    std::ofstream out(file, std::ios::binary);
    for (const std::string& line : lines) out << line << "\r\n";
  }

 private:
  struct Put {
    int col;
    std::string_view text;
  };
  static std::string Line(std::string_view code, std::initializer_list<Put> fields) {
    std::string line(160, ' ');
    line.replace(0, 2, code);
    for (const Put& f : fields) line.replace(static_cast<size_t>(f.col - 1), f.text.size(), f.text);
    line.replace(158, 2, *CL2CheckSum(line));
    return line;
  }
};

}  // namespace kvlr::bench
