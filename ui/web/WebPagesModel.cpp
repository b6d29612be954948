#include "web/WebPagesModel.h"

#include "web/WebTexts.h"

namespace kvlr {

void WebPagesModel::SetPages(std::vector<WebPage> pages) {
  beginResetModel();
  pages_ = std::move(pages);
  endResetModel();
}

int WebPagesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(pages_.size());
}

int WebPagesModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : 2;
}

QVariant WebPagesModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  const WebPage& page = Page(index.row());
  return QString::fromStdString(index.column() == 0 ? page.comment : page.url);
}

QVariant WebPagesModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  const std::string_view text = section == 0 ? web_text::kColumnName : web_text::kColumnUrl;
  return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

}  // namespace kvlr
