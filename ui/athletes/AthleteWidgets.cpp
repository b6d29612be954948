#include "athletes/AthleteWidgets.h"

#include <QFileDialog>
#include <QSignalBlocker>

#include "athletes/FieldSize.h"

namespace kvlr {

QLineEdit* FieldEdit(std::string_view table, std::string_view field, const QString& object_name,
                     QWidget* parent) {
  auto* edit = new QLineEdit(parent);
  edit->setObjectName(object_name);
  if (const int size = FieldSize(table, field); size > 0) edit->setMaxLength(size);
  return edit;
}

QPlainTextEdit* FieldTextEdit(std::string_view table, std::string_view field,
                              const QString& object_name, QWidget* parent) {
  auto* edit = new QPlainTextEdit(parent);
  edit->setObjectName(object_name);
  edit->setTabChangesFocus(true);
  const int size = FieldSize(table, field);
  if (size > 0) {
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit, [edit, size] {
      const QString text = edit->toPlainText();
      if (text.size() <= size) return;
      const QSignalBlocker quiet(edit);
      edit->setPlainText(text.left(size));
      edit->moveCursor(QTextCursor::End);
    });
  }
  return edit;
}

FileChooser DialogFileChooser(QWidget* parent, const QString& default_suffix) {
  return
      [parent, default_suffix](const QString& title, const QString& filter, const QString& start) {
        QFileDialog dialog(parent, title, start, filter);
        dialog.setFileMode(QFileDialog::ExistingFile);
        dialog.setDefaultSuffix(default_suffix);
        if (!start.isEmpty()) dialog.selectFile(start);
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
          return QString();
        return dialog.selectedFiles().first();
      };
}

}  // namespace kvlr
