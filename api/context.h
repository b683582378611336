// The public API's context: the settings one caller's conversions run with,
// and the texts between the caller's code page and the library's.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/settings.h"
#include "quelcnv_api.h"

struct quelcnv_context {
    std::string scratchFolder;
    std::string ownFolder;  // the folder the library made for this context, removed with it
    quelcnv_code_page codePage = QUELCNV_UTF8;
    quelcnv_message_sink sink = nullptr;
    void* sinkData = nullptr;
};

namespace quelcnv::api {

// The settings of one call on the context: its scratch folder, and its
// messages sent to the sink and kept in `shown`.
Settings callSettings(const quelcnv_context& context, std::vector<std::string>& shown);

// A private new folder for a context's scratch files; empty when none could be made.
std::string newScratchFolder();
// Removes a folder made by newScratchFolder, with the scratch files in it.
void removeScratchFolder(const std::string& folder);

// A path from the caller: on Windows, from UTF-8 into the ANSI code page
// the library opens files in; elsewhere the bytes as given.
std::string pathFromCaller(const quelcnv_context& context, std::string_view path);
// A path for the caller: the reverse of pathFromCaller.
std::string pathForCaller(const quelcnv_context& context, std::string_view path);
// A name from the caller (an alignment, a surface) in the library's code page.
std::string nameFromCaller(const quelcnv_context& context, std::string_view name);
// Texts for the caller: UTF-8 text, a name in the library's code page.
std::string fromUtf8(const quelcnv_context& context, std::string_view utf8);
std::string fromCodePage(const quelcnv_context& context, std::string_view text);

}  // namespace quelcnv::api
