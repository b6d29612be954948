#include "interchange/OnlineInfoScreen.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace kvlr {

frmCSOInfo::frmCSOInfo(QWidget* parent) : QDialog(parent) {
  setObjectName("frmCSOInfo");
  setWindowTitle(tr("Online Results Service"));
  auto* layout = new QVBoxLayout(this);
  auto* panel = new QTextBrowser(this);
  panel->setObjectName("txtInfo");
  panel->setOpenLinks(false);
  panel->setHtml(InfoText());
  panel->setMinimumSize(520, 380);
  layout->addWidget(panel, 1);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
}

QString frmCSOInfo::InfoText() {
  return tr(
      "<h3>The online results service</h3>"
      "<p>Clubs that keep their meet results with the online service can hand each family a "
      "results file for its own swimmer, so the swims need not be typed in. KVL-R reads two "
      "kinds of these files: a <b>.psn</b> file with one swimmer's individual results and "
      "splits, and a scrambled text file named <b>KVLR_*.txt</b> that holds the same records "
      "as a meet results file.</p>"
      "<h4>Conditions</h4>"
      "<ol>"
      "<li>A results file is made for one swimmer. It is imported only while a swimmer of "
      "the same last name is the current swimmer; when the first name differs you are asked "
      "before anything is stored.</li>"
      "<li>Save the file as the service hands it out. A file that was opened and changed "
      "fails its checks and is refused; ask the club for a new copy.</li>"
      "<li>Choose the swimmer first, then use the online import and pick the file.</li>"
      "<li>A result already on file for the same meet, event and round is replaced by the "
      "one in the file.</li>"
      "<li>A meet that isn't in the database yet is added with the file's name and dates; "
      "look over its course and location afterwards.</li>"
      "<li>Files unpacked from a zip go to the KVL-RTemp folder, which is emptied each time "
      "a zip is unpacked.</li>"
      "<li>Make a backup of the database before importing a large file.</li>"
      "</ol>");
}

}  // namespace kvlr
