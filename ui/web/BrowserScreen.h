#pragma once
// frmKVLBrowser: the web window, with the fixed pages, the favourite pages of the database,
// the current swimmer's page of times, and the check for a downloaded update on closing.

#include <filesystem>
#include <functional>

#include <QDialog>
#include <QPrinter>
#include <QUrl>

#include "core/AppState.h"
#include "web/WebSettings.h"

class QComboBox;
class QLabel;
class QTableView;
class QTimer;
class QWebEngineLoadingInfo;
class QWebEngineView;

namespace kvlr {

class WebPagesModel;

class frmKVLBrowser final : public QDialog {
  Q_OBJECT
 public:
  // Called with the downloaded update the user agreed to install on closing.
  using InstallUpdate = std::function<void(const std::filesystem::path&)>;

  // Opens at `start`, or at the first fixed page when `start` is empty.
  frmKVLBrowser(AppState& state, WebSettings settings, const QUrl& start,
                InstallUpdate install_update, QWidget* parent = nullptr);

  QWebEngineView& View() { return *view_; }
  // Typed or chosen addresses: a web address, a file path or a file:// address.
  void Navigate(const QString& address);
  void ShowFavorites(bool show);
  void AddFavorite();
  void DeleteFavorite();
  // Writes the current swimmer's page of times beside the database and shows it.
  void ShowSwimmerPage();
  void SavePage();
  void Print();
  // The words shown over the page after a failed load; empty when the last load went well.
  QString Notice() const;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void LoadFavorites();
  void LoadingChanged(const QWebEngineLoadingInfo& info);
  void UrlChanged(const QUrl& url);
  void RefreshTitle();

  AppState& state_;
  WebSettings settings_;
  InstallUpdate install_update_;
  std::filesystem::file_time_type opened_;
  QWebEngineView* view_ = nullptr;
  QComboBox* address_ = nullptr;
  QWidget* favorites_ = nullptr;
  QTableView* grid_ = nullptr;
  WebPagesModel* model_ = nullptr;
  QLabel* notice_ = nullptr;
  QTimer* busy_timer_ = nullptr;
  QPrinter printer_;
  bool printing_ = false;
};

}  // namespace kvlr
