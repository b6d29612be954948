#include <gtest/gtest.h>

#include <sstream>

#include <QImage>

#include "Commands.h"
#include "core/FileOps.h"
#include "meets/ResultsFixture.h"
#include "reports/GraphChart.h"
#include "support/QtApp.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

GraphData Times(int count) {
  GraphData d;
  d.times = true;
  d.title = "Robin Lane  100 Free";
  GraphSeries s{"Results", "", {}};
  for (int i = 0; i < count; ++i) {
    const std::string label = std::to_string(100 + i) + "/2025";
    s.points.push_back({i, Date{2025, 1, 1}, label, 6500.0 - i * 40 + (i % 3) * 70, "Meet"});
    d.slot_labels.push_back(label);
  }
  d.series.push_back(std::move(s));
  return d;
}

TEST(GraphRender, PngAndSvgHoldTheDrawnChartWithTimesOnTheAxis) {
  test::QtApp();
  test::TempHome t;
  for (GraphKind kind : {GraphKind::kLine, GraphKind::kBar}) {
    const fs::path png = t.Data() / "graph.png";
    std::string error;
    ASSERT_TRUE(WriteGraph(Times(12), {kind, kind == GraphKind::kBar}, QSize(640, 400), png,
                           GraphFormat::kPng, &error))
        << error;
    const QImage image(QString::fromStdString(png.string()));
    ASSERT_EQ(image.size(), QSize(640, 400));
    // The series' colour fills far more of the plot than any text or grid line would.
    int coloured = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor c = image.pixelColor(x, y);
        if (c.saturation() > 120 && c.value() > 100) ++coloured;
      }
    }
    EXPECT_GT(coloured, kind == GraphKind::kBar ? 20000 : 800);
  }
  const fs::path svg = t.Data() / "graph.svg";
  ASSERT_TRUE(WriteGraph(Times(12), {}, QSize(640, 400), svg, GraphFormat::kSvg, nullptr));
  const std::string text = ReadWholeFile(svg);
  EXPECT_NE(text.find("<svg"), std::string::npos);
  EXPECT_NE(text.find(">1:02.00<"), std::string::npos);
  std::string error;
  EXPECT_FALSE(WriteGraph(Times(2), {}, QSize(64, 40), t.Root() / "none" / "g.svg",
                          GraphFormat::kSvg, &error));
  EXPECT_FALSE(error.empty());
}

TEST(GraphRender, KvlrGraphDrawsAnEventOrRefusesWithTheMessage) {
  test::QtApp();
  test::TempHome t;
  const fs::path db = test::MakeOpenDatabase(t);
  test::Season s(*t.state.gDb);
  s.Athlete(1, "Lane", "F");
  s.Meet(1, "Autumn Open", "2025-10-04");
  s.Meet(2, "Winter Champs", "2026-02-14");
  for (int meet : {1, 2}) {
    test::Season::Swim w;
    w.meet = meet;
    w.event = s.Event(meet, 1, 100, 2);
    w.stroke = 2;
    w.score = 7000 - meet * 100;
    s.Result(w);
  }
  t.state.CloseCurrentDB();
  auto kvlr = [&t](std::vector<std::string> args, std::string* err = nullptr) {
    std::ostringstream out, errors;
    std::istringstream in;
    args.insert(args.begin(), {"--home", t.Home().string(), "graph", "--db"});
    CliEnvironment env{out, errors, in, false, t.clock, t.disk, "%m/%d/%y", ""};
    const int code = RunCli(args, env);
    if (err) *err = errors.str();
    return std::make_pair(code, out.str());
  };
  const fs::path png = t.Data() / "back.png";
  const auto drawn = kvlr({db.string(), "--athlete", "1", "--stroke", "back", "--distance", "100",
                           "--course", "y", "--bar", "--png", png.string()});
  EXPECT_EQ(drawn.first, 0);
  EXPECT_EQ(drawn.second,
            "Date\tMeet\tTime\n2025-10-04\tAutumn Open\t1:09.00\n2026-02-14\tWinter Champs\t"
            "1:08.00\n");
  EXPECT_EQ(QImage(QString::fromStdString(png.string())).size(), QSize(1000, 600));
  std::string err;
  EXPECT_EQ(kvlr({db.string(), "--athlete", "1", "--stroke", "2", "--distance", "200", "--svg",
                  (t.Data() / "x.svg").string()},
                 &err)
                .first,
            1);
  EXPECT_NE(err.find(graphtext::kNeedTwoResults), std::string::npos);
  EXPECT_FALSE(fs::exists(t.Data() / "x.svg"));
  EXPECT_EQ(kvlr({db.string(), "--athlete", "1", "--stroke", "2", "--distance", "100", "--png",
                  "a.png", "--svg", "a.svg"})
                .first,
            2);
}

}  // namespace
}  // namespace kvlr
