#pragma once
// The favourites grid (TDBGFav): "Web Site Name" and "Web Site Address (URL)".

#include <vector>

#include <QAbstractTableModel>

#include "web/WebPages.h"

namespace kvlr {

class WebPagesModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  using QAbstractTableModel::QAbstractTableModel;
  void SetPages(std::vector<WebPage> pages);
  const WebPage& Page(int row) const { return pages_.at(static_cast<size_t>(row)); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<WebPage> pages_;
};

}  // namespace kvlr
