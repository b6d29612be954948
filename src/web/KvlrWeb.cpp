#include "web/KvlrWeb.h"

namespace kvlr {

std::string HtmlEscape(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      case '\'': out += "&#39;"; break;
      default: out += c;
    }
  }
  return out;
}

std::string HtmlTableRow(const std::vector<HtmlCell>& cells) {
  std::string out = "<tr>";
  for (const HtmlCell& cell : cells) {
    out += "<td align=\"" + HtmlEscape(cell.align) + "\" valign=\"" + HtmlEscape(cell.valign) +
           "\"";
    if (!cell.width.empty()) out += " width=\"" + HtmlEscape(cell.width) + "\"";
    out += ">";
    out += cell.strong ? "<strong>" + HtmlEscape(cell.text) + "</strong>" : HtmlEscape(cell.text);
    out += "</td>";
  }
  return out + "</tr>\n";
}

std::string HtmlHeadingRow(std::string_view text) {
  return "<tr><td valign=\"bottom\" colspan=\"32\" nowrap><font face=\"Times New Roman\"><b><i>" +
         HtmlEscape(text) + "</i></b></font></td></tr>\n";
}

std::string HtmlParagraph(std::string_view text) {
  return "<p><font size=\"3\"><b><big>" + HtmlEscape(text) + "</big></b></font></p>\n";
}

std::string SwimmerPageHtml(std::string_view title, std::string_view note,
                            const std::vector<HomeTable>& tables) {
  std::string out =
      "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>" + HtmlEscape(title) +
      "</title></head>\n<body>\n" + HtmlParagraph(title);
  if (!note.empty()) out += "<p>" + HtmlEscape(note) + "</p>\n";
  for (const HomeTable& table : tables) {
    out += "<table border=\"0\" cellpadding=\"3\">\n" + HtmlHeadingRow(table.title);
    std::vector<HtmlCell> header;
    for (size_t i = 0; i < table.headers.size(); ++i) {
      header.push_back({table.headers[i], i < table.text_columns ? "left" : "right", "bottom", "",
                        true});
    }
    out += HtmlTableRow(header);
    if (table.rows.empty()) {
      HtmlCell hint;
      hint.text = table.empty_text;
      out += HtmlTableRow({hint});
    }
    for (const auto& row : table.rows) {
      std::vector<HtmlCell> cells;
      for (size_t i = 0; i < row.size(); ++i) {
        HtmlCell cell;
        cell.text = row[i];
        if (i >= table.text_columns) cell.align = "right";
        cells.push_back(cell);
      }
      out += HtmlTableRow(cells);
    }
    out += "</table>\n";
  }
  return out + "</body></html>\n";
}

}  // namespace kvlr
