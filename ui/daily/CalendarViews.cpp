#include "daily/CalendarViews.h"

#include <algorithm>

#include <QMouseEvent>
#include <QPainter>

#include "daily/DailyTexts.h"

namespace kvlr {

namespace {

constexpr const char* kWeekdays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr int kMonthHeader = 44;

int DaysInMonth(int year, int month) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : kDays[month - 1];
}

QString MonthName(int year, int month) {
  return QString::fromStdString(MonthTitle(year, month));
}

}  // namespace

QColor EventColor(int type) {
  switch (type) {
    case kEventSwim: return QColor(0x2e, 0x86, 0xc1);
    case kEventDry: return QColor(0x1a, 0xbc, 0x9c);
    case kEventMeet: return QColor(0xc0, 0x39, 0x2b);
    case kEventGoal: return QColor(0xf3, 0x9c, 0x12);
    case kEventMeeting: return QColor(0x8e, 0x44, 0xad);
    case kEventNote: return QColor(0x7f, 0x8c, 0x8d);
    case kEventHealth: return QColor(0x27, 0xae, 0x60);
    case kEventVacation: return QColor(0xd3, 0x54, 0x00);
    default: return QColor(0x34, 0x49, 0x5e);
  }
}

QString MarkText(int type) {
  return type == kEventMultiple ? QString::fromUtf8(dailytext::kMulti.data(), dailytext::kMulti.size())
                                : QString::fromUtf8(EventTypeText(type).data(),
                                                    EventTypeText(type).size());
}

MonthView::MonthView(QWidget* parent) : QWidget(parent) {
  setObjectName("MonthView");
  setMinimumSize(360, 260);
  setFocusPolicy(Qt::StrongFocus);
}

void MonthView::SetMonth(int year, int month, std::map<Date, int> marks) {
  year_ = year;
  month_ = month;
  marks_ = std::move(marks);
  update();
}

void MonthView::SetSelected(const Date& date) {
  selected_ = date;
  update();
}

QRectF MonthView::CellRect(int index) const {
  const double w = width() / 7.0, h = (height() - kMonthHeader) / 6.0;
  return {index % 7 * w, kMonthHeader + index / 7 * h, w, h};
}

std::optional<Date> MonthView::DateAt(QPoint pos) const {
  if (pos.y() < kMonthHeader) return std::nullopt;
  const int lead = Weekday(*Date::FromParts(year_, month_, 1));
  const int col = std::clamp(static_cast<int>(pos.x() / (width() / 7.0)), 0, 6);
  const int row = static_cast<int>((pos.y() - kMonthHeader) / ((height() - kMonthHeader) / 6.0));
  const int day = row * 7 + col - lead + 1;
  if (day < 1 || day > DaysInMonth(year_, month_)) return std::nullopt;
  return Date::FromParts(year_, month_, day);
}

void MonthView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), palette().base());
  QFont title = font();
  title.setBold(true);
  p.setFont(title);
  p.drawText(QRect(0, 0, width(), 24), Qt::AlignCenter, MonthName(year_, month_));
  p.setFont(font());
  for (int c = 0; c < 7; ++c) {
    p.drawText(QRectF(c * width() / 7.0, 24, width() / 7.0, 20), Qt::AlignCenter, kWeekdays[c]);
  }
  const int lead = Weekday(*Date::FromParts(year_, month_, 1));
  const int days = DaysInMonth(year_, month_);
  const QFontMetrics fm(font());
  for (int i = 0; i < 42; ++i) {
    const QRectF cell = CellRect(i);
    const int day = i - lead + 1;
    p.setPen(palette().mid().color());
    p.setBrush(Qt::NoBrush);
    p.drawRect(cell);
    if (day < 1 || day > days) continue;
    const Date date{year_, month_, day};
    if (date == selected_) p.fillRect(cell.adjusted(1, 1, 0, 0), palette().highlight().color().lighter(170));
    p.setPen(palette().text().color());
    p.drawText(cell.adjusted(4, 2, -4, -2), Qt::AlignTop | Qt::AlignLeft, QString::number(day));
    const auto mark = marks_.find(date);
    if (mark == marks_.end()) continue;
    const QRectF badge(cell.left() + 3, cell.bottom() - fm.height() - 5, cell.width() - 6,
                       fm.height() + 2);
    p.setPen(Qt::NoPen);
    p.setBrush(EventColor(mark->second));
    p.drawRoundedRect(badge, 4, 4);
    p.setPen(Qt::white);
    p.drawText(badge, Qt::AlignCenter, fm.elidedText(MarkText(mark->second), Qt::ElideRight,
                                                     static_cast<int>(badge.width()) - 2));
  }
}

void MonthView::mousePressEvent(QMouseEvent* event) {
  const auto date = DateAt(event->position().toPoint());
  if (!date) return;
  SetSelected(*date);
  emit dateChosen(*date);
  if (event->button() == Qt::RightButton) emit dateMenu(*date, event->globalPosition().toPoint());
}

YearView::YearView(QWidget* parent) : QWidget(parent) {
  setObjectName("YearView");
  setMinimumSize(280, 300);
}

void YearView::SetYear(int year, int month, std::map<Date, int> marks) {
  year_ = year;
  month_ = month;
  marks_ = std::move(marks);
  update();
}

// Twelve small months in three columns and four rows, eight lines of cells each.
std::optional<Date> YearView::DateAt(QPoint pos) const {
  const double mw = width() / 3.0, mh = height() / 4.0;
  const int slot = static_cast<int>(pos.y() / mh) * 3 + static_cast<int>(pos.x() / mw);
  if (slot < 0 || slot > 11) return std::nullopt;
  const int m0 = month_ - 1 + slot;
  const int year = year_ + m0 / 12, month = m0 % 12 + 1;
  const double cw = mw / 7.0, ch = mh / 8.0;
  const int col = static_cast<int>((pos.x() - slot % 3 * mw) / cw);
  const int row = static_cast<int>((pos.y() - slot / 3 * mh) / ch) - 2;
  if (row < 0) return std::nullopt;
  const int day = row * 7 + col - Weekday(*Date::FromParts(year, month, 1)) + 1;
  if (day < 1 || day > DaysInMonth(year, month)) return std::nullopt;
  return Date::FromParts(year, month, day);
}

void YearView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), palette().base());
  QFont small = font();
  small.setPointSizeF(std::max(6.0, font().pointSizeF() * 0.75));
  p.setFont(small);
  const double mw = width() / 3.0, mh = height() / 4.0, cw = mw / 7.0, ch = mh / 8.0;
  for (int slot = 0; slot < 12; ++slot) {
    const int m0 = month_ - 1 + slot;
    const int year = year_ + m0 / 12, month = m0 % 12 + 1;
    const double x0 = slot % 3 * mw, y0 = slot / 3 * mh;
    p.setPen(palette().text().color());
    p.drawText(QRectF(x0, y0, mw, ch), Qt::AlignCenter, MonthName(year, month));
    for (int c = 0; c < 7; ++c) {
      p.drawText(QRectF(x0 + c * cw, y0 + ch, cw, ch), Qt::AlignCenter, QString(kWeekdays[c][0]));
    }
    const int lead = Weekday(*Date::FromParts(year, month, 1));
    for (int day = 1; day <= DaysInMonth(year, month); ++day) {
      const int i = day - 1 + lead;
      const QRectF cell(x0 + i % 7 * cw, y0 + (2 + i / 7) * ch, cw, ch);
      const auto mark = marks_.find(Date{year, month, day});
      if (mark != marks_.end()) {
        p.fillRect(cell.adjusted(1, 1, -1, -1), EventColor(mark->second));
        p.setPen(Qt::white);
      } else {
        p.setPen(palette().text().color());
      }
      p.drawText(cell, Qt::AlignCenter, QString::number(day));
    }
  }
}

void YearView::mousePressEvent(QMouseEvent* event) {
  if (const auto date = DateAt(event->position().toPoint())) emit dateChosen(*date);
}

DayView::DayView(QWidget* parent) : QWidget(parent) {
  setObjectName("DayView");
  setMouseTracking(true);
  setMinimumWidth(260);
  setMinimumHeight(sizeHint().height());
}

QSize DayView::sizeHint() const {
  return {300, (kDayLastMinute - kDayFirstMinute) / kQuarter * kLineHeight + kLineHeight};
}

int DayView::YOf(int minutes) const {
  return (minutes - kDayFirstMinute) / kQuarter * kLineHeight;
}

int DayView::MinuteAt(int y) const {
  return kDayFirstMinute + y / kLineHeight * kQuarter;
}

void DayView::SetDay(const Date& date, std::vector<CalendarEvent> events, bool clock24) {
  date_ = date;
  events_ = std::move(events);
  clock24_ = clock24;
  selected_ = -1;
  drag_ = Drag::kNone;
  Layout();
  update();
}

const CalendarEvent* DayView::Selected() const {
  return selected_ >= 0 && selected_ < static_cast<int>(events_.size()) ? &events_[selected_]
                                                                        : nullptr;
}

// Overlapping events share the width in columns, each taking the first column free at its start.
void DayView::Layout() {
  rects_.assign(events_.size(), {});
  std::vector<int> column(events_.size(), 0);
  int columns = 1;
  for (size_t i = 0; i < events_.size(); ++i) {
    std::vector<bool> taken;
    for (size_t j = 0; j < i; ++j) {
      if (*events_[j].end > *events_[i].start && *events_[j].start < *events_[i].end) {
        if (taken.size() <= static_cast<size_t>(column[j])) taken.resize(column[j] + 1);
        taken[column[j]] = true;
      }
    }
    while (column[i] < static_cast<int>(taken.size()) && taken[column[i]]) ++column[i];
    columns = std::max(columns, column[i] + 1);
  }
  const int width_each = std::max(40, (width() - kGutter - 4) / columns);
  for (size_t i = 0; i < events_.size(); ++i) {
    const int start = std::clamp(*events_[i].start, kDayFirstMinute, kDayLastMinute);
    const int end = std::clamp(*events_[i].end, start + kQuarter, kDayLastMinute + kQuarter);
    rects_[i] = QRect(kGutter + 2 + column[i] * width_each, YOf(start), width_each - 2,
                      YOf(end) - YOf(start) - 1);
  }
}

QRect DayView::BlockRect(int64_t id) const {
  for (size_t i = 0; i < events_.size(); ++i) {
    if (events_[i].id == id) return rects_[i];
  }
  return {};
}

void DayView::paintEvent(QPaintEvent*) {
  // The widths follow the widget's, which the scroll area sets after SetDay.
  Layout();
  QPainter p(this);
  p.fillRect(rect(), palette().base());
  for (int m = kDayFirstMinute; m <= kDayLastMinute; m += kQuarter) {
    const int y = YOf(m);
    p.setPen(m % 60 == 0 ? palette().mid().color() : palette().midlight().color());
    p.drawLine(kGutter, y, width(), y);
    if (m % 60 == 0) {
      p.setPen(palette().text().color());
      p.drawText(QRect(0, y, kGutter - 4, kLineHeight), Qt::AlignRight | Qt::AlignVCenter,
                 QString::fromStdString(ClockText(m, clock24_)));
    }
  }
  for (size_t i = 0; i < events_.size(); ++i) {
    QRect r = rects_[i];
    if (static_cast<int>(i) == selected_ && drag_ != Drag::kNone) {
      r.setTop(YOf(drag_start_));
      r.setBottom(YOf(drag_end_) - 1);
    }
    const CalendarEvent& e = events_[i];
    p.setPen(static_cast<int>(i) == selected_ ? QPen(palette().highlight().color(), 2) : Qt::NoPen);
    p.setBrush(EventColor(e.type).lighter(160));
    p.drawRoundedRect(r, 3, 3);
    p.fillRect(QRect(r.left(), r.top(), 4, r.height()), EventColor(e.type));
    p.setPen(palette().text().color());
    const QString text = QString::fromStdString(ClockText(*e.start, clock24_) + " " +
                                                std::string(EventTypeText(e.type)) + " " +
                                                e.comment);
    p.drawText(r.adjusted(7, 1, -2, -1), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, text);
  }
}

void DayView::mousePressEvent(QMouseEvent* event) {
  const QPoint pos = event->position().toPoint();
  selected_ = -1;
  for (size_t i = rects_.size(); i-- > 0;) {
    if (!rects_[i].contains(pos)) continue;
    selected_ = static_cast<int>(i);
    press_y_ = pos.y();
    drag_start_ = *events_[i].start;
    drag_end_ = *events_[i].end;
    drag_ = pos.y() >= rects_[i].bottom() - 4 ? Drag::kResize : Drag::kMove;
    break;
  }
  if (selected_ < 0 && pos.x() >= kGutter) emit timeChosen(MinuteAt(pos.y()));
  update();
}

void DayView::mouseMoveEvent(QMouseEvent* event) {
  const int y = event->position().toPoint().y();
  if (drag_ == Drag::kNone) {
    bool edge = false;
    for (const QRect& r : rects_) edge |= r.contains(event->position().toPoint()) && y >= r.bottom() - 4;
    setCursor(edge ? Qt::SizeVerCursor : Qt::ArrowCursor);
    return;
  }
  const CalendarEvent& e = events_[selected_];
  // Whole quarters only: the grid the day is kept on.
  const int quarters = static_cast<int>(std::lround(double(y - press_y_) / kLineHeight));
  if (drag_ == Drag::kMove) {
    const int length = *e.end - *e.start;
    drag_start_ = std::clamp(*e.start + quarters * kQuarter, kDayFirstMinute, kDayLastMinute - kQuarter);
    drag_end_ = drag_start_ + length;
  } else {
    drag_end_ = std::max(*e.end + quarters * kQuarter, *e.start + kQuarter);
  }
  update();
}

void DayView::mouseReleaseEvent(QMouseEvent*) {
  if (drag_ == Drag::kNone || selected_ < 0) return;
  drag_ = Drag::kNone;
  CalendarEvent& e = events_[selected_];
  if (drag_start_ == *e.start && drag_end_ == *e.end) return update();
  e.start = drag_start_;
  e.end = drag_end_;
  Layout();
  update();
  emit blockMoved(e.id, drag_start_, drag_end_);
}

void DayView::mouseDoubleClickEvent(QMouseEvent*) {
  if (const CalendarEvent* e = Selected()) emit blockOpened(e->id);
}

}  // namespace kvlr
