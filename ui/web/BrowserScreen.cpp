#include "web/BrowserScreen.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPrintDialog>
#include <QRegularExpression>
#include <QSplitter>
#include <QTableView>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWebEngineDownloadRequest>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include "core/ErrorHandler.h"
#include "web/SwimmerPage.h"
#include "web/UpdateFiles.h"
#include "web/WebPagesModel.h"
#include "web/WebTexts.h"

// The help pages live in kvlr_ui's resources, linked only when named.
static void InitHelpResources() {
  Q_INIT_RESOURCE(help);
}

namespace kvlr {
namespace {
QString Q(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<int>(s.size()));
}

bool NoNetwork(const QWebEngineLoadingInfo& info) {
  return info.errorDomain() == QWebEngineLoadingInfo::ConnectionErrorDomain ||
         info.errorDomain() == QWebEngineLoadingInfo::DnsErrorDomain;
}
}  // namespace

frmKVLBrowser::frmKVLBrowser(AppState& state, WebSettings settings, const QUrl& start,
                             InstallUpdate install_update, QWidget* parent)
    : QDialog(parent),
      state_(state),
      settings_(std::move(settings)),
      install_update_(std::move(install_update)),
      opened_(std::filesystem::file_time_type::clock::now()) {
  InitHelpResources();
  setObjectName("frmKVLBrowser");
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  resize(1000, 700);

  view_ = new QWebEngineView(this);
  view_->setObjectName("brwWebBrowser");

  auto* bar = new QToolBar(this);
  bar->setObjectName("tbToolBar");
  bar->addAction(tr("Back"), view_, &QWebEngineView::back);
  bar->addAction(tr("Forward"), view_, &QWebEngineView::forward);
  bar->addAction(tr("Refresh"), view_, &QWebEngineView::reload);
  bar->addAction(tr("Print"), this, &frmKVLBrowser::Print);
  QAction* favorites = bar->addAction(tr("Favorites"));
  favorites->setCheckable(true);
  // The first fixed page on a click; all four on the arrow.
  auto* kvl = new QToolButton(bar);
  kvl->setObjectName("tbKVL");
  kvl->setText(Q(settings_.pages[0].comment));
  kvl->setPopupMode(QToolButton::MenuButtonPopup);
  auto* fixed_menu = new QMenu(kvl);
  for (const WebPage& page : settings_.pages) {
    const QString url = QString::fromStdString(page.url);
    fixed_menu->addAction(Q(page.comment), this, [this, url] { Navigate(url); });
  }
  kvl->setMenu(fixed_menu);
  connect(kvl, &QToolButton::clicked, this,
          [this] { Navigate(QString::fromStdString(settings_.pages[0].url)); });
  bar->addWidget(kvl);
  QAction* mine = bar->addAction(tr("My Times"), this, &frmKVLBrowser::ShowSwimmerPage);
  mine->setToolTip(tr("The current swimmer's best times and results as a page"));
  mine->setEnabled(state_.gDbOpen && state_.gAthlete > 0);
  bar->addAction(tr("Save"), this, &frmKVLBrowser::SavePage)
      ->setToolTip(tr("Save the page shown as an HTML file"));
  bar->addAction(tr("Stop"), view_, &QWebEngineView::stop);
  bar->addAction(tr("Close"), this, &QDialog::close);

  address_ = new QComboBox(this);
  address_->setObjectName("cboAddress");
  address_->setEditable(true);
  address_->setInsertPolicy(QComboBox::NoInsert);
  address_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  connect(address_->lineEdit(), &QLineEdit::returnPressed, this,
          [this] { Navigate(address_->currentText()); });
  connect(address_, &QComboBox::activated, this,
          [this](int index) { Navigate(address_->itemText(index)); });

  notice_ = new QLabel(this);
  notice_->setObjectName("lblNotice");
  notice_->setWordWrap(true);
  notice_->setStyleSheet("QLabel { background: #fff4c2; color: #000; padding: 6px; }");
  notice_->hide();

  favorites_ = new QWidget(this);
  favorites_->setObjectName("FrameFav");
  auto* fav_bar = new QToolBar(favorites_);
  fav_bar->setObjectName("FavToolBar");
  fav_bar->addAction(tr("Add"), this, &frmKVLBrowser::AddFavorite)->setToolTip(Q(web_text::kAddTip));
  fav_bar->addAction(tr("Delete"), this, &frmKVLBrowser::DeleteFavorite)
      ->setToolTip(Q(web_text::kDeleteTip));
  fav_bar->addAction(tr("Close"), this, [favorites] { favorites->setChecked(false); })
      ->setToolTip(Q(web_text::kCloseTip));
  model_ = new WebPagesModel(this);
  grid_ = new QTableView(favorites_);
  grid_->setObjectName("TDBGFav");
  grid_->setModel(model_);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->verticalHeader()->hide();
  grid_->horizontalHeader()->setStretchLastSection(true);
  connect(grid_, &QTableView::clicked, this, [this](const QModelIndex& index) {
    Navigate(QString::fromStdString(model_->Page(index.row()).url));
  });
  auto* fav_layout = new QVBoxLayout(favorites_);
  fav_layout->setContentsMargins(0, 0, 0, 0);
  fav_layout->addWidget(fav_bar);
  fav_layout->addWidget(grid_);
  favorites_->hide();
  connect(favorites, &QAction::toggled, this, &frmKVLBrowser::ShowFavorites);

  auto* split = new QSplitter(this);
  split->addWidget(favorites_);
  split->addWidget(view_);
  split->setStretchFactor(1, 1);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(bar);
  layout->addWidget(address_);
  layout->addWidget(notice_);
  layout->addWidget(split, 1);

  connect(view_->page(), &QWebEnginePage::loadingChanged, this, &frmKVLBrowser::LoadingChanged);
  connect(view_, &QWebEngineView::urlChanged, this, &frmKVLBrowser::UrlChanged);
  connect(view_, &QWebEngineView::titleChanged, this, &frmKVLBrowser::RefreshTitle);
  connect(view_, &QWebEngineView::printFinished, this, [this](bool ok) {
    printing_ = false;
    if (!ok) state_.io->Tell(std::string(web_text::kPrintError) + "the page could not be printed.");
  });
  // Downloads go to the profile's download folder, where closing looks for an update.
  connect(view_->page()->profile(), &QWebEngineProfile::downloadRequested, this,
          [](QWebEngineDownloadRequest* download) { download->accept(); });

  busy_timer_ = new QTimer(this);
  busy_timer_->setObjectName("timTimer");
  busy_timer_->setInterval(250);
  connect(busy_timer_, &QTimer::timeout, this, &frmKVLBrowser::RefreshTitle);
  busy_timer_->start();

  LoadFavorites();
  RefreshTitle();
  view_->load(start.isEmpty() ? QUrl(QString::fromStdString(settings_.pages[0].url)) : start);
}

void frmKVLBrowser::Navigate(const QString& address) {
  const QString text = address.trimmed();
  if (text.isEmpty()) return;
  view_->load(QUrl::fromUserInput(text, QDir::currentPath(), QUrl::AssumeLocalFile));
}

void frmKVLBrowser::ShowFavorites(bool show) {
  favorites_->setVisible(show);
}

void frmKVLBrowser::LoadFavorites() {
  if (!state_.gDbOpen) return;
  try {
    model_->SetPages(LoadWebPages(*state_.gDb));
  } catch (const std::exception& e) {
    ReportError(state_, "frmKVLBrowser.DataWeb", e);
  }
}

void frmKVLBrowser::AddFavorite() {
  if (!state_.gDbOpen) return;
  const std::string url = view_->url().toString().toStdString();
  if (url.empty()) return;
  try {
    if (AddWebPage(state_, settings_.pages, url, view_->title().toStdString())) LoadFavorites();
  } catch (const std::exception& e) {
    ReportError(state_, "frmKVLBrowser.Add", e);
  }
}

void frmKVLBrowser::DeleteFavorite() {
  const QModelIndex current = grid_->currentIndex();
  if (!state_.gDbOpen || !current.isValid()) return;
  try {
    if (DeleteWebPage(state_, model_->Page(current.row()))) LoadFavorites();
  } catch (const std::exception& e) {
    ReportError(state_, "frmKVLBrowser.Delete", e);
  }
}

void frmKVLBrowser::ShowSwimmerPage() {
  if (!state_.gDbOpen || state_.gAthlete == 0) return;
  const std::filesystem::path file = SwimmerPageFile(state_);
  try {
    WriteSwimmerPage(state_, state_.gY2L ? 'Y' : 'S', file);
  } catch (const std::exception& e) {
    ReportError(state_, "frmKVLBrowser.MyTimes", e);
    return;
  }
  view_->load(QUrl::fromLocalFile(QString::fromStdString(file.string())));
}

void frmKVLBrowser::SavePage() {
  QString name = view_->title().isEmpty() ? QString("page") : view_->title();
  name.replace(QRegularExpression("[^A-Za-z0-9 _-]"), "_");
  const QString file = QFileDialog::getSaveFileName(
      this, tr("Save Page"),
      QString::fromStdString((state_.gDataDir.empty() ? state_.data_root : state_.gDataDir) /
                             (name.toStdString() + ".html")),
      tr("Web pages (*.html *.htm)"));
  if (file.isEmpty()) return;
  view_->page()->save(file, QWebEngineDownloadRequest::SingleHtmlSaveFormat);
}

void frmKVLBrowser::Print() {
  if (printing_ || view_->url().isEmpty() || view_->page()->isLoading()) {
    state_.io->Tell(web_text::kPrintDisabled);
    return;
  }
  QPrintDialog dialog(&printer_, this);
  if (dialog.exec() != QDialog::Accepted) return;
  printing_ = true;
  view_->print(&printer_);
}

QString frmKVLBrowser::Notice() const {
  return notice_->isHidden() ? QString() : notice_->text();
}

void frmKVLBrowser::LoadingChanged(const QWebEngineLoadingInfo& info) {
  if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus) return;
  if (info.status() != QWebEngineLoadingInfo::LoadFailedStatus) {
    notice_->hide();
    return;
  }
  // A box for every failed load would stop the window; the words stand over the page.
  QString text = Q(web_text::kBrowserError) + info.errorString();
  if (NoNetwork(info)) text = Q(web_text::kOffline) + "\n" + text;
  notice_->setText(text);
  notice_->show();
}

void frmKVLBrowser::UrlChanged(const QUrl& url) {
  const QString text = url.toString();
  if (text.isEmpty()) return;
  if (address_->findText(text) < 0) address_->addItem(text);
  address_->setCurrentText(text);
}

void frmKVLBrowser::RefreshTitle() {
  if (view_->page()->isLoading()) {
    setWindowTitle(Q(web_text::kWorking));
    return;
  }
  QString title = "KVL-R";
  if (state_.gAthlete > 0) {
    const std::string& name = state_.gAthleteName;
    title = QString::fromStdString(name.substr(0, name.find(' '))) + "'s KVL-R";
  }
  if (!view_->title().isEmpty()) title += " - " + view_->title();
  if (windowTitle() != title) setWindowTitle(title);
}

void frmKVLBrowser::closeEvent(QCloseEvent* event) {
  const QString folder = view_->page()->profile()->downloadPath();
  const auto update = DownloadedUpdate(folder.toStdString(), opened_);
  event->accept();
  if (update && state_.io->AskYesNo(web_text::kInstallDownloaded) && install_update_) {
    install_update_(*update);
  }
}

}  // namespace kvlr
