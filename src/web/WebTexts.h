#pragma once
// The words of the web window, its favourite pages and the update and convert commands.

#include <string_view>

namespace kvlr::web_text {

inline constexpr std::string_view kOnToolbar = "This site is already available on a toolbar button.";
inline constexpr std::string_view kAlreadyFavorite = "This site is already one of your favorites.";
inline constexpr std::string_view kDeletePrefix = "Delete ";
inline constexpr std::string_view kDeleteAt = " at ";
inline constexpr std::string_view kDeleteTitle = "Norvan's KVL RENEWED";
inline constexpr std::string_view kPrintDisabled = "The Print command is currently disabled.";
inline constexpr std::string_view kPrintError = "Print command Error: ";
inline constexpr std::string_view kBrowserError = "brwWebBrowser: ";
inline constexpr std::string_view kInstallDownloaded =
    "Do you want to install the KVL-R update you downloaded?";
inline constexpr std::string_view kRestricted = "Access Denied.  Web browsing is restricted.";
inline constexpr std::string_view kWorking = "Working...";

inline constexpr std::string_view kColumnName = "Web Site Name";
inline constexpr std::string_view kColumnUrl = "Web Site Address (URL)";
inline constexpr std::string_view kAddTip = "Save Current Web Page to Favorites";
inline constexpr std::string_view kDeleteTip = "Delete Selected Page from Favorites";
inline constexpr std::string_view kCloseTip = "Close Favorites";

// The file names the commands look for.
inline constexpr std::string_view kUpdateZip = "KVL-RUP.zip";
inline constexpr std::string_view kConverter = "KVL-RCONVERT";

// Our own words where this platform differs.
inline constexpr std::string_view kUrlTooLong =
    "This address is too long to keep as a favorite (100 characters at most).";
inline constexpr std::string_view kOffline =
    "This page could not be loaded: there seems to be no network connection. Your favorites "
    "and the pages saved on this computer still open.";
inline constexpr std::string_view kConverterMissing =
    "The converter KVL-RCONVERT is not installed. It is looked for in: ";
inline constexpr std::string_view kNoUpdatePackage =
    "No update package was found (KVL-RUP.zip or kvl-r_*.deb). It is looked for in: ";
inline constexpr std::string_view kNoPackageInZip =
    "The update file holds no kvl-r package to install: ";
inline constexpr std::string_view kStartFailed = "Could not start ";

}  // namespace kvlr::web_text
