#include <iostream>

#include "Command.h"
#include "core/VbRules.h"
#include "meets/Meets.h"

namespace kvlr::cli {
namespace {

std::string IsoOrEmpty(const std::optional<Date>& date) {
  return date ? date->Iso() : "";
}

MeetFilter FilterOf(const Context& c) {
  MeetFilter filter;
  const std::string course = UCase(Trim(c.args.Value("--course")));
  if (!course.empty()) {
    if (course != "Y" && course != "S" && course != "L") throw UsageError("--course is Y, S or L");
    filter.course = course.front();
  }
  const std::string since = c.args.Value("--since");
  if (!since.empty()) {
    filter.since = Date::FromIso(since);
    if (!filter.since || since.size() != 10) throw UsageError("--since is a date YYYY-MM-DD");
  }
  filter.type = Trim(c.args.Value("--type"));
  const std::string sort = c.args.Value("--sort");
  if (sort.empty() || sort == "newest")
    filter.sort = MeetSort::kStartNewest;
  else if (sort == "oldest")
    filter.sort = MeetSort::kStartOldest;
  else if (sort == "name")
    filter.sort = MeetSort::kName;
  else if (sort == "course")
    filter.sort = MeetSort::kCourseNewest;
  else
    throw UsageError("--sort is newest, oldest, name or course");
  return filter;
}

int Meets(Context& c) {
  if (!c.args.positional.empty()) throw UsageError("takes no PATH words; the database is --db");
  const std::string db = Required(c, "--db");
  const MeetFilter filter = FilterOf(c);
  if (!OpenAsAtStart(c, db)) return kRefused;
  Row(c.env.out, {"Meet", "MName", "Start", "End", "Course", "Type", "Location"});
  for (const Meet& m : ListMeets(*c.state.gDb, filter)) {
    Row(c.env.out, {std::to_string(m.meet), m.mname, IsoOrEmpty(m.start), IsoOrEmpty(m.end),
                    m.course, m.type, m.location});
  }
  return kOk;
}

}  // namespace

std::vector<Command> MeetCommands() {
  return {
      {"meets",
       "kvlr meets --db PATH [--course Y|S|L] [--since YYYY-MM-DD] [--type T] "
       "[--sort newest|oldest|name|course]",
       "List the meets as the meet list shows them (no goal meets, no pseudo-meets): key, "
       "name, start, end, course, meet type, location. Newest first unless --sort says.",
       {"--db", "--course", "--since", "--type", "--sort"},
       {},
       Meets},
  };
}

}  // namespace kvlr::cli
