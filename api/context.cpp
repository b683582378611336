#include "api/context.h"

#include <filesystem>
#include <new>
#include <random>

#include "common/code_page.h"
#include "common/scratch.h"
#include "common/settings.h"

#ifndef _WIN32
#include <cstdlib>
#endif

namespace quelcnv::api {

namespace fs = std::filesystem;

Settings callSettings(const quelcnv_context& context, std::vector<std::string>& shown) {
    Settings settings;
    settings.scratchFolder = context.scratchFolder;
    settings.showMessage = [&context, &shown](std::string_view text) {
        shown.emplace_back(text);
        if (context.sink != nullptr)
            context.sink(fromCodePage(context, text).c_str(), context.sinkData);
    };
    return settings;
}

std::string newScratchFolder() {
    std::error_code error;
    fs::path base = fs::temp_directory_path(error);
    if (error) return {};
#ifdef _WIN32
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        fs::path folder = base / ("quelcnv-" + std::to_string(random()));
        if (fs::create_directory(folder, error)) return folder.string();
    }
    return {};
#else
    // mkdtemp makes it with mode 0700, as the scratch folder must be.
    std::string name = (base / "quelcnv-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) return {};
    return name;
#endif
}

void removeScratchFolder(const std::string& folder) {
    std::error_code ignored;
    for (const char* name : {"temp.$$$", "$$$$.EJE", "prueba.$$$", ".quelcnv.lock"})
        fs::remove(fs::path(folder) / name, ignored);
    fs::remove(folder, ignored);  // only when nothing else was put there
}

std::string pathFromCaller([[maybe_unused]] const quelcnv_context& context, std::string_view path) {
#ifdef _WIN32
    if (context.codePage == QUELCNV_UTF8)
        if (auto characters = utf8Characters(path)) return codePageText(*characters);
#endif
    return std::string(path);
}

std::string pathForCaller([[maybe_unused]] const quelcnv_context& context, std::string_view path) {
#ifdef _WIN32
    if (context.codePage == QUELCNV_UTF8) return utf8Text(fileNameCharacters(path));
#endif
    return std::string(path);
}

std::string nameFromCaller(const quelcnv_context& context, std::string_view name) {
    if (context.codePage == QUELCNV_UTF8)
        if (auto characters = utf8Characters(name)) return codePageText(*characters);
    return std::string(name);
}

std::string fromUtf8(const quelcnv_context& context, std::string_view utf8) {
    if (context.codePage == QUELCNV_UTF8) return std::string(utf8);
    if (auto characters = utf8Characters(utf8)) return codePageText(*characters);
    return std::string(utf8);
}

std::string fromCodePage(const quelcnv_context& context, std::string_view text) {
    if (context.codePage == QUELCNV_UTF8) return utf8Text(codePageCharacters(text));
    return std::string(text);
}

}  // namespace quelcnv::api

using namespace quelcnv;

extern "C" {

QUELCNV_PUBLIC quelcnv_context* quelcnv_context_new(void) {
    try {
        std::string folder = api::newScratchFolder();
        if (folder.empty()) return nullptr;
        auto* context = new quelcnv_context;
        context->scratchFolder = context->ownFolder = folder;
        return context;
    } catch (...) {
        return nullptr;
    }
}

QUELCNV_PUBLIC void quelcnv_context_free(quelcnv_context* context) {
    if (context == nullptr) return;
    try {
        if (!context->ownFolder.empty()) api::removeScratchFolder(context->ownFolder);
    } catch (...) {
    }
    delete context;
}

QUELCNV_PUBLIC int quelcnv_context_set_scratch_folder(quelcnv_context* context,
                                                      const char* folder) {
    if (context == nullptr || folder == nullptr || *folder == '\0') return 0;
    try {
        std::string trimmed = trimmedFolder(api::pathFromCaller(*context, folder));
        if (!ScratchSession(trimmed).ready()) return 0;
        context->scratchFolder = trimmed;
        return 1;
    } catch (...) {
        return 0;
    }
}

QUELCNV_PUBLIC const char* quelcnv_context_scratch_folder(const quelcnv_context* context) {
    return context == nullptr ? nullptr : context->scratchFolder.c_str();
}

QUELCNV_PUBLIC void quelcnv_context_set_message_sink(quelcnv_context* context,
                                                     quelcnv_message_sink sink, void* user_data) {
    if (context == nullptr) return;
    context->sink = sink;
    context->sinkData = user_data;
}

QUELCNV_PUBLIC int quelcnv_context_set_code_page(quelcnv_context* context,
                                                 quelcnv_code_page code_page) {
    if (context == nullptr) return 0;
    if (code_page != QUELCNV_UTF8 && code_page != QUELCNV_LIBRARY_8BIT) return 0;
    context->codePage = code_page;
    return 1;
}

}  // extern "C"
