#pragma once
// The small HTML writers of pages built from results (basKVLRWeb). Every text handed in is
// plain text and comes out escaped.

#include <string>
#include <string_view>
#include <vector>

#include "home/HomeTables.h"

namespace kvlr {

// &, <, >, " and ' as entities.
std::string HtmlEscape(std::string_view text);

struct HtmlCell {
  std::string text;
  std::string align = "left";
  std::string valign = "top";
  std::string width;  // "" leaves the attribute out
  bool strong = false;
};

// <tr> with one <td align valign [width]> a cell, the text in <strong> where asked.
std::string HtmlTableRow(const std::vector<HtmlCell>& cells);

// A heading row: one cell valign=bottom colspan=32 nowrap, "Times New Roman", bold, italic.
std::string HtmlHeadingRow(std::string_view text);

// A paragraph in font size 3, bold and big.
std::string HtmlParagraph(std::string_view text);

// A whole page: `title` as its title and first paragraph, `note` under it, then one table a
// home table (heading row, a strong header row, its rows; its empty text when it has none).
std::string SwimmerPageHtml(std::string_view title, std::string_view note,
                            const std::vector<HomeTable>& tables);

}  // namespace kvlr
