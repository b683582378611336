// A host program of our own that uses the library as the desktop host does:
// it loads it by name at run time, binds every entry point by its exported
// name and calls them. On Windows it also reads the type library the DLL
// carries and checks it against the table of entry points.
//
//   quelcnv_host check LIBRARY
//       all 60 names resolve (and, on Windows, the type library is right)
//   quelcnv_host run LIBRARY LIST FOLDER
//       runs the conversions of LIST (lines "operation argument...", a word
//       "@name" standing for FOLDER/name, "double quotes" around a word with
//       blanks) and prints each result, and after a selection the list it
//       wrote in $QUELCNV_SCRATCH
//   quelcnv_host typelib DLL
//       (Windows) checks the type library of a DLL it need not load, such as
//       the 32-bit DLL read from a 64-bit program
//   quelcnv_host misaligned DLL LIST FOLDER
//       (32-bit Windows) runs the conversions of LIST with the stack 0, 4, 8
//       and 12 bytes past a 16-byte boundary at every call, each into its own
//       folder under FOLDER, and checks that all give the same results and
//       the same outputs
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "cli/operations.h"

#ifdef _WIN32
#include <windows.h>
// after windows.h, which it needs
#include <oleauto.h>
#ifndef _WIN64
#include "tests/frame/misaligned_calls.h"
#endif
#else
#include <dlfcn.h>
#endif

namespace {

using quelcnv::cli::EntryAddress;
using quelcnv::cli::Operation;

#ifdef _WIN32

using Library = HMODULE;

Library loadLibrary(const std::string& name) { return LoadLibraryA(name.c_str()); }

EntryAddress entryAddress(Library library, const std::string& name) {
    return reinterpret_cast<EntryAddress>(GetProcAddress(library, name.c_str()));
}

#else

using Library = void*;

Library loadLibrary(const std::string& name) { return dlopen(name.c_str(), RTLD_NOW); }

EntryAddress entryAddress(Library library, const std::string& name) {
    return reinterpret_cast<EntryAddress>(dlsym(library, name.c_str()));
}

#endif

int failures = 0;

void fail(const std::string& message) {
    std::cerr << "quelcnv_host: " << message << "\n";
    ++failures;
}

std::string exportedName(const Operation& op) { return "MyDll_" + std::string(op.name); }

bool resolveAll(Library library) {
    int resolved = 0;
    for (const Operation& op : quelcnv::cli::operations()) {
        if (entryAddress(library, exportedName(op)) != nullptr) {
            ++resolved;
        } else {
            fail("missing export " + exportedName(op));
        }
    }
    if (resolved != 60) fail("resolved " + std::to_string(resolved) + " of 60 entry points");
    return resolved == 60;
}

#ifdef _WIN32

std::string narrow(BSTR text) {
    std::string out;
    for (UINT i = 0; text != nullptr && i < SysStringLen(text); ++i)
        out += static_cast<char>(text[i] < 128 ? text[i] : '?');
    return out;
}

// The documentation string of a member (or, for MEMBERID_NIL, of the type).
std::string helpOf(ITypeInfo* info, MEMBERID member) {
    BSTR help = nullptr;
    info->GetDocumentation(member, nullptr, &help, nullptr, nullptr);
    std::string text = narrow(help);
    SysFreeString(help);
    return text;
}

std::vector<std::string> namesOf(ITypeInfo* info, MEMBERID member) {
    BSTR names[16] = {};
    UINT count = 0;
    info->GetNames(member, names, 16, &count);
    std::vector<std::string> out;
    for (UINT i = 0; i < count; ++i) {
        out.push_back(narrow(names[i]));
        SysFreeString(names[i]);
    }
    return out;
}

void checkFunction(ITypeInfo* module, UINT index, const Operation& op) {
    FUNCDESC* function = nullptr;
    if (FAILED(module->GetFuncDesc(index, &function))) {
        fail("no function " + std::to_string(index));
        return;
    }
    std::vector<std::string> expected{exportedName(op)};
    for (std::string_view argument : op.argumentNames()) expected.emplace_back(argument);
    std::vector<std::string> names = namesOf(module, function->memid);
    if (names != expected) fail("names of " + exportedName(op) + " differ");
    if (function->cParams + 1u != expected.size()) fail("argument count of " + exportedName(op));
    for (SHORT i = 0; i < function->cParams && i + 1u < expected.size(); ++i) {
        VARTYPE type = function->lprgelemdescParam[i].tdesc.vt;
        if (type != (expected[i + 1] == "selec" ? VT_INT : VT_LPSTR))
            fail("type of " + expected[i + 1] + " in " + exportedName(op) + ": " +
                 std::to_string(type));
    }
    VARTYPE result = function->elemdescFunc.tdesc.vt;
    bool integer = op.result == quelcnv::cli::ResultKind::integer;
    if (result != (integer ? VT_INT : VT_VOID)) fail("result type of " + exportedName(op));
    if (function->callconv != CC_STDCALL) fail("calling convention of " + exportedName(op));
    if (helpOf(module, function->memid) != op.help) fail("help text of " + exportedName(op));
    BSTR dll = nullptr, entry = nullptr;
    WORD ordinal = 0;
    module->GetDllEntry(function->memid, INVOKE_FUNC, &dll, &entry, &ordinal);
    if (narrow(dll) != "quelcnv.dll" || narrow(entry) != exportedName(op))
        fail("DLL entry of " + exportedName(op) + ": " + narrow(dll) + " " + narrow(entry));
    SysFreeString(dll);
    SysFreeString(entry);
    module->ReleaseFuncDesc(function);
}

void checkModule(ITypeInfo* module) {
    TYPEATTR* attributes = nullptr;
    module->GetTypeAttr(&attributes);
    UINT count = attributes->cFuncs;
    module->ReleaseTypeAttr(attributes);
    auto ops = quelcnv::cli::operations();
    if (count != ops.size()) fail("MyDllFunctions holds " + std::to_string(count) + " functions");
    for (UINT i = 0; i < count && i < ops.size(); ++i) checkFunction(module, i, ops[i]);
}

void checkEnumeration(ITypeInfo* enumeration) {
    TYPEATTR* attributes = nullptr;
    enumeration->GetTypeAttr(&attributes);
    UINT count = attributes->cVars;
    enumeration->ReleaseTypeAttr(attributes);
    const char* members[] = {"tlbRotateLeft", "tlbRotateRight"};
    if (count != 2) fail("RotateDirection holds " + std::to_string(count) + " members");
    for (UINT i = 0; i < count && i < 2; ++i) {
        VARDESC* member = nullptr;
        enumeration->GetVarDesc(i, &member);
        std::vector<std::string> names = namesOf(enumeration, member->memid);
        if (names.empty() || names[0] != members[i] || member->varkind != VAR_CONST ||
            member->lpvarValue->lVal != static_cast<LONG>(i))
            fail(std::string("member ") + members[i]);
        enumeration->ReleaseVarDesc(member);
    }
}

// Finds the module and the enumeration by name and kind and checks them.
void checkTypeLibrary(const wchar_t* path) {
    ITypeLib* typeLibrary = nullptr;
    if (FAILED(LoadTypeLibEx(path, REGKIND_NONE, &typeLibrary))) {
        fail("no type library in the DLL");
        return;
    }
    BSTR help = nullptr;
    typeLibrary->GetDocumentation(-1, nullptr, &help, nullptr, nullptr);
    if (narrow(help) != "Functions exported by quelcnv.dll") fail("library help string");
    SysFreeString(help);
    bool moduleSeen = false, enumerationSeen = false;
    for (UINT i = 0; i < typeLibrary->GetTypeInfoCount(); ++i) {
        BSTR name = nullptr;
        typeLibrary->GetDocumentation(i, &name, nullptr, nullptr, nullptr);
        std::string text = narrow(name);
        SysFreeString(name);
        TYPEKIND kind;
        typeLibrary->GetTypeInfoType(i, &kind);
        ITypeInfo* info = nullptr;
        typeLibrary->GetTypeInfo(i, &info);
        if (text == "MyDllFunctions" && kind == TKIND_MODULE) {
            moduleSeen = true;
            checkModule(info);
        } else if (text == "RotateDirection" && kind == TKIND_ENUM) {
            enumerationSeen = true;
            checkEnumeration(info);
        }
        info->Release();
    }
    if (!moduleSeen) fail("no module MyDllFunctions");
    if (!enumerationSeen) fail("no enumeration RotateDirection");
    typeLibrary->Release();
}

int checkTypeLibraryOf(const std::string& dll) {
    std::wstring path(dll.begin(), dll.end());
    checkTypeLibrary(path.c_str());
    if (failures == 0) std::cout << "type library of " << dll << " checked\n";
    return failures == 0 ? 0 : 1;
}

#endif

int check(Library library) {
    resolveAll(library);
#ifdef _WIN32
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(library, path, MAX_PATH);
    checkTypeLibrary(path);
#endif
    if (failures == 0) std::cout << "60 entry points bound by name\n";
    return failures == 0 ? 0 : 1;
}

// The words of a line: separated by blanks, a word in double quotes being
// taken whole.
std::vector<std::string> wordsOf(const std::string& line) {
    std::vector<std::string> words;
    std::istringstream in(line);
    for (std::string word; in >> std::quoted(word);) words.push_back(word);
    return words;
}

// The selection list the last selection wrote, line by line.
void printSelectionList() {
    const char* scratch = std::getenv("QUELCNV_SCRATCH");
    if (scratch == nullptr) return;
    std::ifstream list(std::string(scratch) + "/$$$$.EJE");
    for (std::string name; std::getline(list, name);) std::cout << "  " << name << "\n";
}

// Runs one line of the list.
void runLine(Library library, const std::string& line, const std::string& folder) {
    std::vector<std::string> words = wordsOf(line);
    if (words.empty()) return;
    std::string name = words.front();
    const Operation* op = quelcnv::cli::findOperation(name);
    if (op == nullptr) {
        fail("unknown operation " + name);
        return;
    }
    std::vector<std::string> arguments;
    for (std::size_t i = 1; i < words.size(); ++i)
        arguments.push_back(words[i][0] == '@' ? folder + "/" + words[i].substr(1) : words[i]);
    if (arguments.size() != op->argumentNames().size()) {
        fail("wrong argument count for " + name);
        return;
    }
    EntryAddress entry = entryAddress(library, exportedName(*op));
    if (entry == nullptr) return;
    int result = op->invokeAt(entry, arguments);
    std::cout << name << " -> " << result;
    if (name == "ReverseString") std::cout << " " << arguments[0];
    std::cout << "\n";
    if (name.starts_with("selecciona")) printSelectionList();
}

int run(Library library, const std::string& list, const std::string& folder) {
    if (!resolveAll(library)) return 1;
    std::ifstream in(list);
    if (!in) fail("cannot read " + list);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line[0] == '#') continue;
        runLine(library, line, folder);
    }
    return failures == 0 ? 0 : 1;
}

#if defined(_WIN32) && !defined(_WIN64)

// The entry point's arguments as the 4-byte words a standard call pushes:
// selec as its number, every other one as the address of its text (the
// sample entry point's as a buffer it may write into).
std::vector<std::uint32_t> wordsFor(const Operation& op, std::vector<std::string>& texts) {
    std::vector<std::uint32_t> words;
    std::vector<std::string_view> names = op.argumentNames();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (names[i] == "selec") {
            words.push_back(static_cast<std::uint32_t>(std::stoi(texts[i])));
        } else {
            texts[i].resize(std::max<std::size_t>(texts[i].size(), 256), '\0');
            words.push_back(
                static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(texts[i].data())));
        }
    }
    return words;
}

// Every file of the folder, by name; a LandXML document without the date and
// time it was written at.
std::map<std::string, std::string> filesOf(const std::filesystem::path& folder) {
    static const std::regex stamp(" date=\"[0-9-]+\" time=\"[0-9:]+\"");
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream in(entry.path(), std::ios::binary);
        std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        files[entry.path().filename().string()] = std::regex_replace(bytes, stamp, "");
    }
    return files;
}

// The results of the conversions of LIST called at one offset, into folder.
std::vector<std::string> runAtOffset(Library library, const std::string& list,
                                     const std::filesystem::path& folder, unsigned offset) {
    std::filesystem::create_directories(folder);
    std::vector<std::string> results;
    std::ifstream in(list);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        std::vector<std::string> words = wordsOf(line);
        if (words.empty() || words[0][0] == '#') continue;
        const Operation* op = quelcnv::cli::findOperation(words[0]);
        if (op == nullptr || words.size() != op->argumentNames().size() + 1) continue;
        std::vector<std::string> texts;
        for (std::size_t i = 1; i < words.size(); ++i)
            texts.push_back(words[i][0] == '@' ? (folder / words[i].substr(1)).string() : words[i]);
        auto entry = reinterpret_cast<void (*)()>(entryAddress(library, exportedName(*op)));
        int result = quelcnv::test::callWithStackOffset(entry, wordsFor(*op, texts), offset);
        bool integer = op->result == quelcnv::cli::ResultKind::integer;
        results.push_back(words[0] + " -> " + (integer ? std::to_string(result) : "-"));
    }
    return results;
}

int misaligned(Library library, const std::string& list, const std::string& folder) {
    if (!resolveAll(library)) return 1;
    std::filesystem::path base(folder);
    std::vector<std::string> aligned = runAtOffset(library, list, base / "pila0", 0);
    std::map<std::string, std::string> alignedFiles = filesOf(base / "pila0");
    for (unsigned offset : {4u, 8u, 12u}) {
        std::filesystem::path here = base / ("pila" + std::to_string(offset));
        std::vector<std::string> results = runAtOffset(library, list, here, offset);
        for (std::size_t i = 0; i < results.size() && i < aligned.size(); ++i)
            if (results[i] != aligned[i])
                fail(results[i] + " with the stack " + std::to_string(offset) + " bytes off, " +
                     aligned[i] + " aligned");
        std::map<std::string, std::string> files = filesOf(here);
        for (const auto& [name, bytes] : alignedFiles)
            if (files[name] != bytes)
                fail(name + " differs with the stack " + std::to_string(offset) + " bytes off");
        if (files.size() != alignedFiles.size()) fail("other files with the stack off");
    }
    if (failures == 0)
        std::cout << aligned.size()
                  << " conversions, the same with the stack 4, 8 and 12 bytes off\n";
    return failures == 0 ? 0 : 1;
}

#endif

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    bool checking = args.size() == 2 && args[0] == "check";
    bool running = args.size() == 4 && args[0] == "run";
    bool offsetting = args.size() == 4 && args[0] == "misaligned";
#ifdef _WIN32
    if (args.size() == 2 && args[0] == "typelib") return checkTypeLibraryOf(args[1]);
#endif
    if (!checking && !running && !offsetting) {
        std::cerr << "usage: quelcnv_host check LIBRARY | run LIBRARY LIST FOLDER | typelib DLL"
                     " | misaligned DLL LIST FOLDER\n";
        return 2;
    }
    Library library = loadLibrary(args[1]);
    if (library == nullptr) {
        std::cerr << "quelcnv_host: cannot load " << args[1] << "\n";
        return 1;
    }
#if defined(_WIN32) && !defined(_WIN64)
    if (offsetting) return misaligned(library, args[2], args[3]);
#else
    if (offsetting) {
        std::cerr << "quelcnv_host: misaligned calls are for the 32-bit DLL\n";
        return 2;
    }
#endif
    return checking ? check(library) : run(library, args[2], args[3]);
}
