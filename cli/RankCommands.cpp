#include <iostream>

#include "Command.h"
#include "meets/Ranking.h"

namespace kvlr::cli {

namespace {

int Rank(Context& c) {
  if (!OpenAsAtStart(c, Required(c, "--db"))) return kRefused;
  RankCount individual;
  RankCount legs;
  // Both run whatever the first gave; a failure was already shown by the ranking itself.
  const bool individual_done = AddRank(c.state, kUpdatingRankings, &individual);
  const bool legs_done = AddRankIndividualRelayLeg(c.state, kUpdatingRankings, &legs);
  Row(c.env.out, {"Individual", "Relay legs", "Changed"});
  Row(c.env.out, {std::to_string(individual.rows), std::to_string(legs.rows),
                  std::to_string(individual.changed + legs.changed)});
  return individual_done && legs_done ? kOk : kRefused;
}

}  // namespace

std::vector<Command> RankCommands() {
  return {
      {"rank",
       "kvlr rank --db PATH",
       "Rebuild the rank of every result: individual swims and lead-off legs, then non-lead "
       "relay legs. Prints the rows ranked and how many ranks changed.",
       {"--db"},
       {},
       Rank},
  };
}

}  // namespace kvlr::cli
