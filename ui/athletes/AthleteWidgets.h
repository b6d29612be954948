#pragma once
// Small pieces the athlete screens share: text conversion and entry fields sized by the
// schema so that nobody can type more than a field holds.

#include <functional>
#include <string>
#include <string_view>

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QString>

namespace kvlr {

inline QString Q(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<int>(s.size()));
}
inline std::string S(const QString& s) {
  return s.toStdString();
}

// A line edit named `object_name` holding at most the size of `table`.`field`.
QLineEdit* FieldEdit(std::string_view table, std::string_view field, const QString& object_name,
                     QWidget* parent);

// A multi-line edit named `object_name` that keeps at most the size of `table`.`field`.
QPlainTextEdit* FieldTextEdit(std::string_view table, std::string_view field,
                              const QString& object_name, QWidget* parent);

// Asks for a file to open: (dialog title, filter, start file) -> the chosen path, "" for none.
// Screens hold one so tests can answer without a dialog.
using FileChooser = std::function<QString(const QString&, const QString&, const QString&)>;
FileChooser DialogFileChooser(QWidget* parent, const QString& default_suffix);

}  // namespace kvlr
