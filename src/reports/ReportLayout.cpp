#include "reports/ReportLayout.h"

#include <algorithm>
#include <numeric>

#include <QFile>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>

namespace kvlr {
namespace {

// Pages are laid out in units of 1/1200 inch whatever the device, and painted scaled: a PDF
// and a printer of any resolution then break the same lines onto the same pages.
constexpr double kLayoutDpi = 1200;
constexpr double kBodyPoints = 9;
constexpr double kSmallestPoints = 6.5;
// Fixed-width text is laid out by padding: a cut line loses its right-hand columns, so
// such a section may go smaller than proportional text before anything is elided.
constexpr double kSmallestFixedPoints = 4.5;

QString Q(const std::string& text) { return QString::fromStdString(text); }

QFont Font(double points, bool bold = false, bool italic = false, bool mono = false) {
  QFont f(mono ? QStringLiteral("DejaVu Sans Mono") : QStringLiteral("DejaVu Sans"));
  f.setStyleHint(mono ? QFont::Monospace : QFont::SansSerif);
  f.setPixelSize(static_cast<int>(points * kLayoutDpi / 72 + 0.5));
  f.setBold(bold);
  f.setItalic(italic);
  return f;
}

// What a page holds, in the order painted.
struct Item {
  enum class Kind { kHeading, kColumns, kGroup, kSubGroup, kRow, kDetail, kNote };
  Kind kind;
  const ReportSection* section = nullptr;
  size_t geometry = 0;  // index into Layout::sections
  std::vector<std::string> texts;
  double y = 0;
  double height = 0;
  double x = 0;  // the left edge of its flow column
  bool bold = false;
};

// Column positions and the body fonts of one section.
struct SectionGeometry {
  std::vector<double> x, width;
  QFont row, bold, detail;
  double points = 0;
  double row_height = 0, group_height = 0, sub_height = 0, detail_height = 0;
  bool has_headings = false;
  bool mono = false;
};

// Details start under the second column, below the row's first cell.
double DetailX(const SectionGeometry& geo) { return geo.x.size() > 1 ? geo.x[1] : 0; }

class Paginator {
 public:
  Paginator(const ReportDoc& doc, QPaintDevice& device)
      : doc_(doc),
        width_(device.width() * kLayoutDpi / device.logicalDpiX()),
        height_(device.height() * kLayoutDpi / device.logicalDpiY()) {
    const QFontMetricsF title(Font(14, true)), head(Font(9)), foot(Font(8));
    header_height_ = title.height() * 1.3 + head.height() * static_cast<double>(doc.head_lines.size()) +
                     head.height() * 0.6;
    footer_height_ = foot.height() * 1.8;
    bottom_ = height_ - footer_height_;
    columns_ = std::clamp(doc.flow_columns, 1, 2);
    gap_ = columns_ > 1 ? kLayoutDpi / 4 : 0;
    column_width_ = (width_ - gap_ * (columns_ - 1)) / columns_;
  }

  std::vector<std::vector<Item>> Run() {
    NewPage();
    for (const ReportSection& s : doc_.sections) Place(s);
    return std::move(pages_);
  }

  double HeaderHeight() const { return header_height_; }
  double Width() const { return width_; }
  double ColumnWidth() const { return column_width_; }
  double Height() const { return height_; }
  const std::vector<SectionGeometry>& Geometry() const { return geometry_; }

 private:
  void Place(const ReportSection& s) {
    geometry_.push_back(Measure(s));
    const size_t g = geometry_.size() - 1;
    const SectionGeometry& geo = geometry_[g];
    if (s.new_page && BodyStarted()) NewPage();
    section_ = &s;
    group_.clear();
    sub_.clear();
    const double heads = geo.has_headings ? geo.row_height * 1.3 : 0;
    if (!s.heading.empty()) {
      const double h = geo.group_height * 1.5;
      if (y_ + h + heads + geo.row_height * 2 > bottom_) Break();
      Add({Item::Kind::kHeading, &s, g, {s.heading}}, h);
    }
    if (geo.has_headings) Add({Item::Kind::kColumns, &s, g, {}}, heads);
    // Items and heights first: what must share a page is known before any is placed.
    std::vector<Item> items;
    std::vector<double> heights;
    for (const ReportLine& line : s.lines) {
      Item item{KindOf(line.kind), &s, g, line.cells};
      item.bold = line.bold;
      double h = geo.row_height;
      if (line.kind != ReportLine::Kind::kRow) item.texts = {line.text};
      if (line.kind == ReportLine::Kind::kGroup) h = geo.group_height;
      if (line.kind == ReportLine::Kind::kSubGroup) h = geo.sub_height;
      if (line.kind == ReportLine::Kind::kNote) h = geo.row_height * 1.4;
      if (line.kind == ReportLine::Kind::kDetail) {
        item.texts = Wrap(line.text, geo.detail, column_width_ - DetailX(geo));
        h = geo.detail_height * (static_cast<double>(item.texts.size()) + 0.2);
      }
      items.push_back(std::move(item));
      heights.push_back(h);
    }
    for (size_t i = 0; i < items.size(); ++i) {
      const ReportLine::Kind kind = s.lines[i].kind;
      // Headings stay with the first row under them, and a row with its details.
      double need = heights[i];
      bool row_seen = kind == ReportLine::Kind::kRow;
      for (size_t j = i + 1; j < items.size() && kind != ReportLine::Kind::kDetail &&
                             kind != ReportLine::Kind::kNote;
           ++j) {
        const auto k = s.lines[j].kind;
        if (row_seen && k != ReportLine::Kind::kDetail) break;
        if (k == ReportLine::Kind::kNote) break;
        need += heights[j];
        row_seen = row_seen || k == ReportLine::Kind::kRow;
      }
      if (y_ + need > bottom_ && BodyStarted()) {
        Break();
        if (geo.has_headings) Add({Item::Kind::kColumns, &s, g, {}}, heads);
        if (kind != ReportLine::Kind::kGroup && !group_.empty()) {
          Add({Item::Kind::kGroup, &s, g, {group_ + " (continued)"}}, geo.group_height);
          if (kind != ReportLine::Kind::kSubGroup && !sub_.empty()) {
            Add({Item::Kind::kSubGroup, &s, g, {sub_ + " (continued)"}}, geo.sub_height);
          }
        }
      }
      if (kind == ReportLine::Kind::kGroup) {
        group_ = s.lines[i].text;
        sub_.clear();
      } else if (kind == ReportLine::Kind::kSubGroup) {
        sub_ = s.lines[i].text;
      }
      Add(std::move(items[i]), heights[i]);
    }
  }

  static bool IsHeading(ReportLine::Kind k) {
    return k == ReportLine::Kind::kGroup || k == ReportLine::Kind::kSubGroup;
  }
  static Item::Kind KindOf(ReportLine::Kind k) {
    switch (k) {
      case ReportLine::Kind::kGroup:
        return Item::Kind::kGroup;
      case ReportLine::Kind::kSubGroup:
        return Item::Kind::kSubGroup;
      case ReportLine::Kind::kDetail:
        return Item::Kind::kDetail;
      case ReportLine::Kind::kNote:
        return Item::Kind::kNote;
      default:
        return Item::Kind::kRow;
    }
  }

  SectionGeometry Measure(const ReportSection& s) {
    SectionGeometry geo;
    double total = 0;
    for (const ReportColumn& c : s.columns) total += std::max(1.0, c.weight);
    if (s.columns.empty()) total = 1;
    // Shrink the body font until the columns' usual widths fit the paper.
    double points = kBodyPoints;
    geo.mono = s.fixed_pitch;
    const double chars_at_body =
        QFontMetricsF(Font(kBodyPoints, false, false, geo.mono)).averageCharWidth();
    const double smallest = geo.mono ? kSmallestFixedPoints : kSmallestPoints;
    if (total * chars_at_body > column_width_) {
      points = std::max(smallest, kBodyPoints * column_width_ / (total * chars_at_body));
      // Pixel sizes are whole numbers: step down until the measured width fits.
      while (geo.mono && points > smallest &&
             total * QFontMetricsF(Font(points, false, false, true)).averageCharWidth() >
                 column_width_) {
        points = std::max(smallest, points - 0.05);
      }
    }
    geo.points = points;
    geo.row = Font(points, false, false, geo.mono);
    geo.bold = Font(points, true, false, geo.mono);
    geo.detail = Font(std::max(kSmallestPoints, points - 1), false, true);
    geo.row_height = QFontMetricsF(geo.row).height() * 1.25;
    geo.group_height = QFontMetricsF(Font(points + 2, true)).height() * 1.6;
    geo.sub_height = QFontMetricsF(geo.bold).height() * 1.4;
    geo.detail_height = QFontMetricsF(geo.detail).height() * 1.1;
    double x = 0;
    for (const ReportColumn& c : s.columns) {
      const double w = column_width_ * std::max(1.0, c.weight) / total;
      geo.x.push_back(x);
      geo.width.push_back(w);
      x += w;
      geo.has_headings = geo.has_headings || !c.heading.empty();
    }
    if (geo.x.empty()) {
      geo.x.push_back(0);
      geo.width.push_back(column_width_);
    }
    return geo;
  }

  // Word-wrapped lines of a detail text, breaking only at blanks (the blanks between words
  // kept as written); a word wider than the line is elided.
  std::vector<std::string> Wrap(const std::string& text, const QFont& font, double width) const {
    const QFontMetricsF fm(font);
    width -= fm.averageCharWidth();  // the padding of a painted cell
    std::vector<std::string> lines;
    QString current;
    static const QRegularExpression kWords(QStringLiteral("( *)([^ ]+)"));
    for (auto it = kWords.globalMatch(Q(text)); it.hasNext();) {
      const auto m = it.next();
      const QString tried = current.isEmpty() ? m.captured(2) : current + m.captured(0);
      if (fm.horizontalAdvance(tried) <= width || current.isEmpty()) {
        current = tried;
      } else {
        lines.push_back(fm.elidedText(current, Qt::ElideRight, width).toStdString());
        current = m.captured(2);
      }
    }
    if (!current.isEmpty()) lines.push_back(fm.elidedText(current, Qt::ElideRight, width).toStdString());
    if (lines.empty()) lines.push_back("");
    return lines;
  }

  bool BodyStarted() const {
    const double x = ColumnX();
    return std::any_of(pages_.back().begin(), pages_.back().end(), [x](const Item& i) {
      return i.kind != Item::Kind::kColumns && i.x == x;
    });
  }
  double ColumnX() const { return column_ * (column_width_ + gap_); }
  void NewPage() {
    pages_.emplace_back();
    y_ = header_height_;
    column_ = 0;
  }
  // The next flow column, or a new page behind the last.
  void Break() {
    if (column_ + 1 < columns_) {
      ++column_;
      y_ = header_height_;
    } else {
      NewPage();
    }
  }
  void Add(Item item, double height) {
    item.x = ColumnX();
    item.y = y_;
    item.height = height;
    y_ += height;
    pages_.back().push_back(std::move(item));
  }

  const ReportDoc& doc_;
  double width_, height_;
  double header_height_ = 0, footer_height_ = 0, bottom_ = 0, y_ = 0;
  int columns_ = 1, column_ = 0;
  double gap_ = 0, column_width_ = 0;
  std::vector<std::vector<Item>> pages_;
  std::vector<SectionGeometry> geometry_;
  const ReportSection* section_ = nullptr;
  std::string group_, sub_;
};

Qt::Alignment AlignOf(ReportColumn::Align a) {
  switch (a) {
    case ReportColumn::Align::kRight:
      return Qt::AlignRight;
    case ReportColumn::Align::kCenter:
      return Qt::AlignHCenter;
    default:
      return Qt::AlignLeft;
  }
}

// Text inside a box, elided to the box: a column never runs into the next.
void Cell(QPainter& p, const QRectF& box, const QString& text, Qt::Alignment align) {
  const double pad = QFontMetricsF(p.font()).averageCharWidth() * 0.4;
  const QRectF inner = box.adjusted(pad, 0, -pad, 0);
  const QString shown = QFontMetricsF(p.font()).elidedText(text, Qt::ElideRight, inner.width());
  p.drawText(inner, static_cast<int>(align | Qt::AlignVCenter), shown);
}

void PaintPage(QPainter& p, const ReportDoc& doc, const std::vector<Item>& items,
               const std::vector<SectionGeometry>& geometry, int page, int pages,
               double header_height, double page_width, double column_width, double height) {
  double width = page_width;
  const double hair = kLayoutDpi / 150;
  // Page header.
  p.setFont(Font(14, true));
  const double title_h = QFontMetricsF(p.font()).height() * 1.3;
  Cell(p, QRectF(0, 0, width, title_h), Q(doc.title), Qt::AlignHCenter);
  p.setFont(Font(9));
  const double head_h = QFontMetricsF(p.font()).height();
  double y = title_h;
  for (const std::string& line : doc.head_lines) {
    Cell(p, QRectF(0, y, width, head_h), Q(line), Qt::AlignHCenter);
    y += head_h;
  }
  p.fillRect(QRectF(0, header_height - head_h * 0.3, width, hair), Qt::black);
  // Footer.
  p.setFont(Font(8));
  const double foot_h = QFontMetricsF(p.font()).height();
  p.fillRect(QRectF(0, height - foot_h * 1.5, width, hair), Qt::black);
  const QRectF foot(0, height - foot_h * 1.3, width, foot_h * 1.3);
  Cell(p, foot, Q(doc.report_date), Qt::AlignLeft);
  Cell(p, foot, QStringLiteral("Page %1 of %2").arg(page).arg(pages), Qt::AlignRight);

  width = column_width;
  for (const Item& item : items) {
    const SectionGeometry& geo = geometry[item.geometry];
    p.save();
    p.translate(item.x, 0);
    const QRectF line(0, item.y, width, item.height);
    switch (item.kind) {
      case Item::Kind::kHeading:
        p.setFont(Font(geo.points + 3, true));
        Cell(p, line, Q(item.texts[0]), Qt::AlignLeft);
        break;
      case Item::Kind::kColumns:
        p.setFont(geo.bold);
        for (size_t c = 0; c < item.section->columns.size(); ++c) {
          const ReportColumn& col = item.section->columns[c];
          Cell(p, QRectF(geo.x[c], item.y, geo.width[c], item.height), Q(col.heading),
               AlignOf(col.align));
        }
        p.fillRect(QRectF(0, item.y + item.height - hair, width, hair), Qt::gray);
        break;
      case Item::Kind::kGroup:
        p.setFont(Font(geo.points + 2, true, false, geo.mono));
        Cell(p, line.adjusted(0, item.height * 0.25, 0, 0), Q(item.texts[0]), Qt::AlignLeft);
        break;
      case Item::Kind::kSubGroup:
        p.setFont(geo.bold);
        Cell(p, line.adjusted(geo.width[0] * 0.3, item.height * 0.15, 0, 0), Q(item.texts[0]),
             Qt::AlignLeft);
        break;
      case Item::Kind::kRow:
        p.setFont(item.bold ? geo.bold : geo.row);
        for (size_t c = 0; c < item.texts.size() && c < geo.x.size(); ++c) {
          const ReportColumn::Align a = c < item.section->columns.size()
                                            ? item.section->columns[c].align
                                            : ReportColumn::Align::kLeft;
          Cell(p, QRectF(geo.x[c], item.y, geo.width[c], item.height), Q(item.texts[c]),
               AlignOf(a));
        }
        break;
      case Item::Kind::kDetail: {
        p.setFont(geo.detail);
        const double x = DetailX(geo);
        double ty = item.y;
        for (const std::string& text : item.texts) {
          Cell(p, QRectF(x, ty, width - x, geo.detail_height), Q(text), Qt::AlignLeft);
          ty += geo.detail_height;
        }
        break;
      }
      case Item::Kind::kNote:
        p.setFont(geo.bold);
        Cell(p, line, Q(item.texts[0]), Qt::AlignRight);
        break;
    }
    p.restore();
  }
}

}  // namespace

QPageLayout ReportPageLayout(const ReportDoc& doc) {
  QPageSize size(QPageSize::Letter);
  if (doc.paper == PaperChoice::kLegal) size = QPageSize(QPageSize::Legal);
  if (doc.paper == PaperChoice::kA4) size = QPageSize(QPageSize::A4);
  return QPageLayout(size, doc.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                     QMarginsF(0.5, 0.5, 0.5, 0.5), QPageLayout::Inch);
}

int PaintReport(const ReportDoc& doc, QPagedPaintDevice& device) {
  Paginator paginator(doc, device);
  const auto pages = paginator.Run();
  QPainter painter;
  if (!painter.begin(&device)) return 0;
  const int count = static_cast<int>(pages.size());
  for (int i = 0; i < count; ++i) {
    if (i > 0) device.newPage();
    painter.resetTransform();
    painter.scale(device.logicalDpiX() / kLayoutDpi, device.logicalDpiY() / kLayoutDpi);
    PaintPage(painter, doc, pages[static_cast<size_t>(i)], paginator.Geometry(), i + 1, count,
              paginator.HeaderHeight(), paginator.Width(), paginator.ColumnWidth(),
              paginator.Height());
  }
  painter.end();
  return count;
}

int WriteReportPdf(const ReportDoc& doc, const std::filesystem::path& file) {
  const std::filesystem::path part = file.string() + ".part";
  int pages = 0;
  {
    QPdfWriter writer(QString::fromStdString(part.string()));
    writer.setResolution(300);
    writer.setPageLayout(ReportPageLayout(doc));
    writer.setTitle(Q(doc.title));
    writer.setCreator(QStringLiteral("KVL-R"));
    pages = PaintReport(doc, writer);
  }
  std::error_code ec;
  if (pages == 0) {
    std::filesystem::remove(part, ec);
    return 0;
  }
  std::filesystem::rename(part, file, ec);
  return ec ? 0 : pages;
}

}  // namespace kvlr
