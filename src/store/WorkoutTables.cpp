#include "store/WorkoutTables.h"

#include <fmt/format.h>

namespace kvlr {
namespace {

std::vector<FieldDef> SetFields() {
  return {Long("set_reps"),           Long("set_dist"),    Long("set_interval"),
          Text("set_desc", 30),       Int("set_energyno"), Text("set_type", 4),
          Text("set_categoryabbr", 3)};
}

std::vector<TableDef> MakeWorkoutTables() {
  std::vector<TableDef> t;
  t.push_back({"WkParam",
               "Workout Header",
               "basWKUtil.CreateWkParamTable",
               {Counter("wk_ptr"), Long("wk_num"), DateField("wk_date"), Long("start_time"),
                Int("rest_period"), Text("group_abbr", 5), Text("subgroup_abbr", 3),
                Text("course_yls", 1), Long("tot_yards"), Long("tot_stress"), Bool("ck_selected")},
               {Primary("wkparameter", {"wk_ptr"}),
                Plain("wkdate", {"wk_date", "group_abbr", "subgroup_abbr", "start_time"}),
                Plain("wkgroup", {"group_abbr", "subgroup_abbr", "wk_date", "start_time"}),
                Plain("wktotyards", {"tot_yards"}), Plain("wknum", {"wk_num"})}});

  std::vector<FieldDef> lines = {Long("wk_ptr"),      Int("wk_line"),     Text("wk_type", 1),
                                 Int("circuit_line"), Int("circuit_tot"), Int("circuit_reps")};
  for (auto& f : SetFields()) {
    lines.push_back(f);
    if (f.name == "set_desc") lines.push_back(Text("set_note", 55));
  }
  lines.push_back(Long("tot_yards"));
  lines.push_back(Long("set_starttime"));
  lines.push_back(Long("set_finishtime"));
  t.push_back({"Workout",
               "Workout",
               "basWKUtil.CreateWorkoutTable",
               lines,
               {Plain("wkptrline", {"wk_ptr", "wk_line"})}});

  t.push_back(
      {"Energy",
       "Energy Category",
       "basWKUtil.CreateEnergyTable",
       {Int("energy_no"), Text("energy_abbr", 3), Text("energy_name", 20), Int("stress_index")},
       {Plain("energyno", {"energy_no"})}});

  t.push_back({"StrokeCategory",
               "Stroke Category",
               "basWKUtil.CreateStrokeCategoryTable",
               {Text("stroke_abbr", 3), Text("stroke_name", 20)},
               {Plain("strokeabbr", {"stroke_abbr"})}});

  t.push_back({"WorkCategory",
               "Work Type Category",
               "basWKUtil.CreateWorkCategoryTable",
               {Text("stroke_abbr", 1), Text("stroke_name", 20)},
               {Plain("workabbr", {"stroke_abbr"})}});

  t.push_back({"SetDescriptions",
               "Set Descriptions",
               "basWKUtil.CreateSetDescriptionsTable",
               {Text("set_name", 30)},
               {Plain("setname", {"set_name"})}});

  std::vector<FieldDef> memsets = {Counter("set_no")};
  for (auto& f : SetFields()) memsets.push_back(f);
  t.push_back(
      {"MemSets",
       "Memorized Sets",
       "basWKUtil.CreateMemSetsTable",
       memsets,
       {Plain("memsetorder", {"set_energyno", "set_dist", "set_reps", "set_interval", "set_desc"}),
        Plain("setno", {"set_no"})}});

  std::vector<FieldDef> circuit = {Long("cir_no"), Int("circuit_line")};
  for (auto& f : SetFields()) circuit.push_back(f);
  t.push_back({"MemCirSets",
               "Memorized Circuit Sets",
               "basWKUtil.CreateMemcirSetsTable",
               circuit,
               {Plain("memcirsetorder", {"cir_no", "circuit_line"})}});

  t.push_back({"MemCirName",
               "Memorized Circuits",
               "basWKUtil.CreateMemCirNameTable",
               {Counter("cir_no"), Text("cir_name", 30), Int("tot_lines"), Long("tot_dist"),
                Long("tot_seconds")},
               {Plain("memcirno", {"cir_no"}), Plain("memcirname", {"cir_name", "cir_no"})}});
  return t;
}

std::vector<TableDef> MakeWorkoutReportTables() {
  std::vector<TableDef> t;
  t.push_back({"WKLOGBOOK",
               "Report Logbooks",
               "basWKUtil.CreateRptLogBookTable",
               {Single("seq_no"), Single("look_ahead"), Long("wk_ptr"), Text("wk_numltr", 4),
                Text("wk_name", 100), Long("event_change"), Text("div_Header", 70),
                Text("item_type", 1), Text("text_line", 140)},
               {Plain("seqplain", {"event_change", "seq_no"})}});

  std::vector<FieldDef> params = {
      Int("num_columns"),    Text("incl_datetime", 1), Bool("sep_pages"),      Int("page_length"),
      Text("course_yls", 1), Text("attend_type", 1),   Text("percent_dist", 4)};
  for (int i = 1; i <= 11; ++i) params.push_back(Text(fmt::format("percent_dist{}", i), 4));
  for (int i = 1; i <= 13; ++i) params.push_back(Text(fmt::format("col_{}", i), 9));
  t.push_back(
      {"PARAMETERS", "Report Parameters", "basWKUtil.CreateRptParametersTable", params, {}});

  t.push_back({"WKSTATS",
               "Report Statistics",
               "basWKUtil.CreateRptStatsTable",
               {Single("seq_no"), Single("look_ahead"), Text("group_name", 100),
                Long("event_change"), Text("item_type", 1), Text("text_line", 140)},
               {Plain("seqplain", {"event_change", "seq_no"})}});
  return t;
}

}  // namespace

const std::vector<TableDef>& WorkoutTables() {
  static const std::vector<TableDef> tables = MakeWorkoutTables();
  return tables;
}

const std::vector<TableDef>& WorkoutReportTables() {
  static const std::vector<TableDef> tables = MakeWorkoutReportTables();
  return tables;
}

const std::vector<EnergySeed>& EnergySeeds() {
  static const std::vector<EnergySeed> seeds = {{1, "REC", "Warm-up/Recovery", 0},
                                                {2, "EN1", "Aerobic Base", 1},
                                                {3, "EN2", "Anaerobic Threshold", 2},
                                                {4, "EN3", "MaxVO2", 6},
                                                {5, "SP1", "Lactate Tolerance", 8},
                                                {6, "SP2", "Lactate Peak", 10},
                                                {7, "SP3", "Alactate", 4},
                                                {8, " ", " ", 0},
                                                {9, " ", " ", 0}};
  return seeds;
}

const std::vector<std::pair<const char*, const char*>>& StrokeCategorySeeds() {
  static const std::vector<std::pair<const char*, const char*>> seeds = {{"FR", "Freestyle"},
                                                                         {"BK", "Backstroke"},
                                                                         {"BR", "Breaststroke"},
                                                                         {"FLY", "Butterfly"},
                                                                         {"IM", "IM"},
                                                                         {"STK", "Your Stroke"},
                                                                         {"FRM", "Free-medley"},
                                                                         {"PAD", "Paddles"},
                                                                         {"FIN", "Fins"},
                                                                         {"DRY", "Dry-land"},
                                                                         {"SUR", "Surgical Tubing"},
                                                                         {"WTS", "Weight-Lifting"}};
  return seeds;
}

const std::vector<std::pair<const char*, const char*>>& WorkCategorySeeds() {
  static const std::vector<std::pair<const char*, const char*>> seeds = {
      {"S", "Swim"},  {"K", "Kick"},    {"P", "Pull"},
      {"D", "Drill"}, {"L", "Dryland"}, {"M", "Meeting"}};
  return seeds;
}

const std::vector<const char*>& SetDescriptionSeeds() {
  static const std::vector<const char*> seeds = {
      "Freestyle",           "Backstroke",           "Breaststroke",      "Butterfly",
      "Individual Medley",   "Your Stroke",          "Free-medley",       "Free breathe 3-5-7-9",
      "Descend 1-3 stroke",  "Swim-kick-pull",       "Rt-lft-double arm", "Surgical tubing",
      "Kick your stroke",    "Kick side-bk-stomach", "Sprint no breath",  "Warm-up",
      "Recovery / swim-down"};
  return seeds;
}

}  // namespace kvlr
