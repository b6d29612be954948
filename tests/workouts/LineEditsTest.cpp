#include <functional>
#include <sstream>

#include <gtest/gtest.h>

#include "workouts/LineEdits.h"

namespace kvlr {
namespace {

using Lines = std::vector<WkLine>;

// "a:S b:C1/2x3 ~n:S": a set (or with ~ a note) named by its text, and its circuit fields.
Lines Make(const std::string& layout) {
  Lines lines;
  std::istringstream in(layout);
  std::string token;
  while (in >> token) {
    const auto colon = token.find(':');
    std::string name = token.substr(0, colon);
    WkLine l;
    if (name[0] == '~') {
      l.set_note = name.substr(1);
    } else {
      l.set_desc = name;
      l.set_reps = 4;
      l.set_dist = 50;
      l.set_interval = 60;
    }
    int line = 0, tot = 0, reps = 0;
    if (token[colon + 1] == 'C') {
      std::sscanf(token.c_str() + colon + 2, "%d/%dx%d", &line, &tot, &reps);
      l.wk_type = "C";
    }
    l.circuit_line = static_cast<int16_t>(line);
    l.circuit_tot = static_cast<int16_t>(tot);
    l.circuit_reps = static_cast<int16_t>(reps);
    l.wk_line = static_cast<int16_t>(lines.size() + 1);
    lines.push_back(l);
  }
  return lines;
}

std::string Dump(const Lines& lines) {
  std::string out;
  for (size_t i = 0; i < lines.size(); ++i) {
    const auto& l = lines[i];
    if (l.wk_line != static_cast<int>(i + 1)) return "wk_line gap at " + std::to_string(i + 1);
    if (!out.empty()) out += ' ';
    out += l.IsNote() ? "~" + l.set_note : l.set_desc;
    out += l.wk_type == "C" ? ":C" + std::to_string(l.circuit_line) + "/" +
                                  std::to_string(l.circuit_tot) + "x" +
                                  std::to_string(l.circuit_reps)
                            : ":S";
    if (l.wk_type == "S" && (l.circuit_line || l.circuit_tot || l.circuit_reps)) out += "!";
  }
  return out;
}

SetValues X(std::string name = "x") {
  return SetValues{4, 50, 60, std::move(name), 2, "S", "FR"};
}

struct OpCase {
  const char* name;
  const char* before;
  std::function<bool(Lines&)> op;
  const char* after;  // equal to before when the step must refuse
};

TEST(WorkoutLineEdits, EachStepOnLinesAndCircuitFields) {
  auto move = [](int from, int to) {
    return [=](Lines& l) { return MoveLine(l, from, to) != 0; };
  };
  const std::vector<OpCase> cases = {
      {"add single in front", "a:S b:S", [](Lines& l) { return AddSingleSet(l, 2, X()); },
       "a:S x:S b:S"},
      {"add single at End appends", "a:S", [](Lines& l) { return AddSingleSet(l, 2, X()); },
       "a:S x:S"},
      {"add single inside a circuit refused", "a:C1/2x3 b:C2/2x3",
       [](Lines& l) { return AddSingleSet(l, 2, X()); }, "a:C1/2x3 b:C2/2x3"},
      {"note inside a circuit joins it", "a:C1/2x3 b:C2/2x3",
       [](Lines& l) { return AddNote(l, 2, "n"); }, "a:C1/3x3 ~n:C2/3x3 b:C3/3x3"},
      {"note at a circuit's first line stays outside", "a:C1/1x3",
       [](Lines& l) { return AddNote(l, 1, "n"); }, "~n:S a:C1/1x3"},
      {"empty note not added", "a:S", [](Lines& l) { return AddNote(l, 1, " "); }, "a:S"},
      {"circuit line at end of previous circuit", "a:C1/1x2 b:S",
       [](Lines& l) { return AddCircuitLine(l, 2, CircuitPlace::kEndOfPrevious, X(), 2); },
       "a:C1/2x2 x:C2/2x2 b:S"},
      {"circuit line in front of next circuit", "a:S b:C1/1x2",
       [](Lines& l) { return AddCircuitLine(l, 2, CircuitPlace::kFrontOfNext, X(), 2); },
       "a:S x:C1/2x2 b:C2/2x2"},
      {"circuit line inside, new reps go to all", "a:C1/2x3 b:C2/2x3",
       [](Lines& l) { return AddCircuitLine(l, 2, CircuitPlace::kInside, X(), 5); },
       "a:C1/3x5 x:C2/3x5 b:C3/3x5"},
      {"add circuit between singles is a new circuit", "a:S b:S",
       [](Lines& l) {
         return AddCircuitLine(l, 2, PlanAddCircuitLine(l, 2), X(), 4);
       },
       "a:S x:C1/1x4 b:S"},
      {"delete a circuit's first line", "a:C1/3x3 b:C2/3x3 c:C3/3x3",
       [](Lines& l) { return DeleteLine(l, 1); }, "b:C1/2x3 c:C2/2x3"},
      {"delete the only line of a circuit", "a:C1/1x2 b:S",
       [](Lines& l) { return DeleteLine(l, 1); }, "b:S"},
      {"delete first line next to another circuit", "a:C1/1x2 b:C1/2x3 c:C2/2x3",
       [](Lines& l) { return DeleteLine(l, 2); }, "a:C1/1x2 c:C1/1x3"},
      {"delete on the End row does nothing", "a:S", [](Lines& l) { return DeleteLine(l, 2); },
       "a:S"},
      {"edit first line's reps: whole circuit", "a:C1/2x3 b:C2/2x3",
       [](Lines& l) { return EditLine(l, 1, X(), 5); }, "x:C1/2x5 b:C2/2x5"},
      {"edit later line keeps circuit reps", "a:C1/2x3 b:C2/2x3",
       [](Lines& l) { return EditLine(l, 2, X(), 5); }, "a:C1/2x3 x:C2/2x3"},
      {"drag single up", "a:S b:S c:S", move(3, 1), "c:S a:S b:S"},
      {"drag single down", "a:S b:S c:S", move(1, 3), "b:S a:S c:S"},
      {"drop just below itself does nothing", "a:S b:S", move(1, 2), "a:S b:S"},
      {"circuit line dragged out onto End", "a:C1/2x3 b:C2/2x3 c:S", move(2, 4),
       "a:C1/1x3 c:S b:S"},
      {"lone circuit line stays a circuit", "a:C1/1x2 b:S", move(1, 3), "b:S a:C1/1x2"},
      {"single into a circuit", "a:S b:C1/2x3 c:C2/2x3", move(1, 3),
       "b:C1/3x3 a:C2/3x3 c:C3/3x3"},
      {"single onto a circuit's first line stays outside", "a:S b:S c:C1/2x3 d:C2/2x3",
       move(1, 3), "b:S a:S c:C1/2x3 d:C2/2x3"},
      {"within one circuit", "a:C1/3x3 b:C2/3x3 c:C3/3x3", move(1, 3),
       "b:C1/3x3 a:C2/3x3 c:C3/3x3"},
      {"into another circuit", "a:C1/2x2 b:C2/2x2 c:C1/2x3 d:C2/2x3", move(1, 4),
       "b:C1/1x2 c:C1/3x3 a:C2/3x3 d:C3/3x3"},
      {"memorized set inside a circuit", "a:C1/2x3 b:C2/2x3",
       [](Lines& l) { return InsertMemorizedSet(l, 2, X()); }, "a:C1/3x3 x:C2/3x3 b:C3/3x3"},
      {"memorized circuit at a first line goes in front", "a:C1/1x2",
       [](Lines& l) {
         return InsertMemorizedCircuit(l, 1, {X(), SetValues{0, 0, 0, "n", 0, "", ""}}, 4);
       },
       "x:C1/2x4 ~n:C2/2x4 a:C1/1x2"},
      {"memorized circuit inside a circuit takes its reps", "a:C1/2x3 b:C2/2x3",
       [](Lines& l) { return InsertMemorizedCircuit(l, 2, {X()}, 9); },
       "a:C1/3x3 x:C2/3x3 b:C3/3x3"},
      {"memorized circuit at End appends", "a:S",
       [](Lines& l) { return InsertMemorizedCircuit(l, 2, {X()}, 9); }, "a:S x:C1/1x9"},
      {"memorized set into an empty workout", "",
       [](Lines& l) { return InsertMemorizedSet(l, 1, X()); }, "x:S"},
  };
  for (const auto& c : cases) {
    Lines lines = Make(c.before);
    const bool done = c.op(lines);
    EXPECT_EQ(done, std::string(c.before) != c.after) << c.name;
    EXPECT_EQ(Dump(lines), c.after) << c.name;
  }
}

TEST(WorkoutLineEdits, CircuitPlacesAndRefusals) {
  const Lines lines = Make("a:S b:C1/1x2 c:C1/2x3 d:C2/2x3 e:S");
  EXPECT_EQ(PlanAddCircuitLine(lines, 1), CircuitPlace::kNewCircuit);
  EXPECT_EQ(PlanAddCircuitLine(lines, 2), CircuitPlace::kFrontOfNext);
  EXPECT_EQ(PlanAddCircuitLine(lines, 3), CircuitPlace::kAsk);
  EXPECT_EQ(PlanAddCircuitLine(lines, 4), CircuitPlace::kInside);
  EXPECT_EQ(PlanAddCircuitLine(lines, 5), CircuitPlace::kEndOfPrevious);
  EXPECT_EQ(PlanAddCircuitLine({}, 1), CircuitPlace::kNewCircuit);
  EXPECT_TRUE(RefuseAddSingle(lines, 4).has_value());
  EXPECT_FALSE(RefuseAddSingle(lines, 3).has_value());
  EXPECT_EQ(CheckSetEntry(0, 0, 60, true), "Reps and Distance cannot both be zero !");
  EXPECT_EQ(CheckSetEntry(0, 50, 60, true), "Please enter a number for Reps !");
  EXPECT_EQ(CheckSetEntry(4, 0, 0, true), "Please enter an interval !");
  EXPECT_EQ(CheckSetEntry(4, 0, 60, false), "There are invalid characters for Work Type !");
  EXPECT_EQ(CheckSetEntry(4, 0, 60, true), "");
}

}  // namespace
}  // namespace kvlr
