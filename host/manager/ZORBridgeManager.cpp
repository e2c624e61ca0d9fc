#include "ZORBridgeManager.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "ZORHostCatalogues.h"
#include "ZORModelCheck.h"
#include "ZORNearest.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view LIBRARY_PREFIX = "lib";
constexpr std::string_view HOST_PREFIX = "ZOR";
constexpr std::string_view LIBRARY_SUFFIX = ".so";

ZORString toZORString(const std::string& text) {
    return ZORString(std::string_view(text));
}

std::string quote(const fs::path& path) {
    return "\"" + path.native() + "\"";
}

[[noreturn]] void fail(const std::string& sentence) {
    throw ZORException(toZORString(sentence));
}

std::string_view withoutPrefix(std::string_view text, std::string_view prefix) {
    return text.starts_with(prefix) ? text.substr(prefix.size()) : text;
}

/// The library's name without "lib" and without ".so" and what follows: for "libZORX.so.5" it is "ZORX".
std::string baseNameOf(const fs::path& file) {
    const std::string name = file.filename().native();
    return std::string(
        withoutPrefix(std::string_view(name).substr(0, name.find(LIBRARY_SUFFIX)), LIBRARY_PREFIX));
}

std::string bridgeNameOf(const fs::path& file) {
    return std::string(withoutPrefix(baseNameOf(file), HOST_PREFIX));
}

/// What the bridge will write, by the option that chooses it; a bridge without that option may write
/// anything.
ZORViewsToCheck viewsOf(const ZOROptionList& options) {
    const ZORString view = options.getValue("Model");
    return view == "ERD" || view == "DBM" || view == "ERD and DBM" ? ZORViewsToCheck::ALL_BUT_UML
                                                                   : ZORViewsToCheck::ALL;
}

/// Does the bridge's work; an exception that is not the host's leaves as the host's message for it.
template <typename Work>
auto guarded(const ZORString& bridge, const Work& work) {
    try {
        return work();
    } catch (const ZORException&) {
        throw;
    } catch (...) {
        QLCM::BRIDGE_UNEXPECTED_ERROR.throwException(bridge);
    }
}

/// The library that this code is in. Found when the library is loaded: the path by which it was found may be
/// relative to the folder in which the program was started.
struct OwnLibrary {
    OwnLibrary() noexcept {
        Dl_info info{};
        if (dladdr(&LIBRARY_SUFFIX, &info) != 0 && info.dli_fname != nullptr &&
            ::realpath(info.dli_fname, path) == nullptr) {
            path[0] = '\0';
        }
    }
    char path[PATH_MAX] = {};  ///< of fixed size, for no failure could be told of here
};

const OwnLibrary OWN_LIBRARY;

fs::path defaultFolder() {
    const char* chosen = std::getenv("ZOR_BRIDGE_PATH");
    return chosen != nullptr && *chosen != '\0'
               ? fs::path(chosen)
               : fs::path(OWN_LIBRARY.path).parent_path() / ZOR_BRIDGE_SUBDIR;
}

[[noreturn]] void failUnreadable(const fs::path& file, int reason) {
    fail("The bridge library " + quote(file) + " cannot be read: " + std::generic_category().message(reason) +
         ".");
}

bool beginsLikeALibrary(const fs::path& file) {
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        failUnreadable(file, errno);
    }
    char magic[4] = {};
    const ssize_t count = ::read(descriptor, magic, sizeof magic);
    ::close(descriptor);
    return count == sizeof magic && std::string_view(magic, sizeof magic) == "\177ELF";
}

/// Refuses what the loader would say something unclear about, or would wait for.
void checkLibraryFile(const fs::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) {
        const int reason = errno;
        if (reason == ENOENT || reason == ENOTDIR) {
            fail("There is no bridge library " + quote(file) + ".");
        }
        failUnreadable(file, reason);
    }
    if (!S_ISREG(status.st_mode)) {
        fail(quote(file) + " is not a bridge: it is not a file.");
    }
    if (!beginsLikeALibrary(file)) {
        fail(quote(file) + " is not a bridge: it is not a shared library.");
    }
}

/// What the loader says, without the path that it begins with.
std::string describeLoadError(const fs::path& file) {
    const char* said = dlerror();
    const std::string path = file.native() + ": ";
    return std::string(withoutPrefix(said == nullptr ? "no reason given" : said, path));
}

/// What may have been meant, else what there is to choose from.
std::string describeKnown(const std::string& name, const std::vector<ZORString>& known) {
    if (known.empty()) {
        return " It holds no bridge at all.";
    }
    const std::vector<std::string_view> candidates(known.begin(), known.end());
    std::string sentence = describeNearest(name, candidates);
    if (sentence.empty()) {
        for (const std::string_view candidate : candidates) {
            sentence.append(sentence.empty() ? " It holds " : ", ")
                .append("\"")
                .append(candidate)
                .append("\"");
        }
        sentence += ".";
    }
    return sentence;
}

void requireFolder(const fs::path& folder) {
    std::error_code error;
    if (fs::is_directory(folder, error)) {
        return;
    }
    if (error == std::errc::permission_denied) {
        fail("The folder " + quote(folder) + " cannot be looked into for bridges: " + error.message() + ".");
    }
    fail("There is no folder " + quote(folder) + " to look for bridges in.");
}

void requireSound(ZORModel& model, const ZOROptionList& options) {
    constexpr std::size_t MOST_FAULTS = 20;
    // One more than is told, so that it can be told whether there are more.
    const std::vector<ZORString> faults = checkModel(model, MOST_FAULTS + 1, viewsOf(options));
    if (faults.empty()) {
        return;
    }
    ZORString text = "The model \"" + model.getDisplayName() + "\" is not sound:";
    for (std::size_t i = 0; i < std::min(faults.size(), MOST_FAULTS); ++i) {
        text.append("\n").append(faults[i]);
    }
    throw ZORException(faults.size() > MOST_FAULTS ? text + "\nThere are more faults." : text);
}

using Factory = ZORBridgeExportInterface*();

}  // namespace

/// A loaded library and the interface object in it.
struct ZORBridge::Library {
    explicit Library(const fs::path& file)
        : path(toZORString(file.native())), name(toZORString(bridgeNameOf(file))) {
        checkLibraryFile(file);
        handle.reset(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL));
        if (handle == nullptr) {
            fail("The bridge library " + quote(file) + " cannot be loaded: " + describeLoadError(file) + ".");
        }
        const std::string symbol = "get" + baseNameOf(file) + "Interface";
        auto* factory = reinterpret_cast<Factory*>(dlsym(handle.get(), symbol.c_str()));
        if (factory == nullptr) {
            fail(quote(file) + " is not a bridge: it does not export the function \"" + symbol + "\".");
        }
        bridge = guarded(name, [factory] { return factory(); });
        if (bridge == nullptr) {
            fail("The bridge library " + quote(file) + " gives no interface: \"" + symbol +
                 "\" returned null.");
        }
    }

    struct Close {
        void operator()(void* library) const noexcept { dlclose(library); }
    };

    ZORString path;
    ZORString name;
    std::unique_ptr<void, Close> handle;
    ZORBridgeExportInterface* bridge = nullptr;
};

const ZORString& ZORBridge::getPath() const noexcept {
    return library_->path;
}

const ZORString& ZORBridge::getName() const noexcept {
    return library_->name;
}

ZORBridgeExportInterface& ZORBridge::getInterface() const noexcept {
    return *library_->bridge;
}

void ZORBridge::getOptionList(ZOROptionList& options) const {
    guarded(getName(), [&] { getInterface().getOptionList(options); });
}

ZORBridgeSpecification ZORBridge::getSpecification() const {
    return guarded(getName(), [&] {
        ZORBridgeSpecification specification;
        getInterface().getSpecification(getName(), specification);
        return specification;
    });
}

ZORString ZORBridge::getMappingSpecificationXmlFile() const {
    return guarded(getName(), [&] { return getInterface().getMappingSpecificationXmlFile(); });
}

ZORString ZORBridge::findMappingSpecification() const {
    const ZORString name = getMappingSpecificationXmlFile();
    const fs::path document = fs::path(getPath().c_str()).parent_path() / (std::string(name.view()) + ".xml");
    std::error_code error;
    return !name.isEmpty() && fs::is_regular_file(document, error) ? toZORString(document.native())
                                                                   : ZORString();
}

void ZORBridge::run(ZORModel& model, ZOROptionList& options, ZORLog& log) const {
    requireSound(model, options);
    const ZORString fileName = options.getValue("File");
    const bool completed =
        guarded(getName(), [&] { return getInterface().run(fileName, model, options, log); });
    if (!completed) {
        throw ZORException("The bridge \"" + getName() + "\" did not complete the export.");
    }
}

bool ZORBridge::canInspect() const noexcept {
    return dynamic_cast<ZORBridgeInspectionInterface*>(&getInterface()) != nullptr;
}

void ZORBridge::inspect(ZORModel& model, ZOROptionList& options, ZORLog& log,
                        ZORExportObserver& observer) const {
    auto* inspection = dynamic_cast<ZORBridgeInspectionInterface*>(&getInterface());
    if (inspection == nullptr) {
        throw ZORException("The bridge \"" + getName() + "\" does not tell what it would write.");
    }
    requireSound(model, options);
    guarded(getName(), [&] { inspection->inspect(model, options, log, observer); });
}

ZORBridgeManager::ZORBridgeManager(ZORString folder)
    : folder_(folder.isEmpty() ? toZORString(defaultFolder().native()) : std::move(folder)) {}

std::vector<ZORString> ZORBridgeManager::listBridges() const {
    std::vector<ZORString> names;
    std::error_code error;
    for (fs::directory_iterator at(folder_.c_str(), error), end; !error && at != end; at.increment(error)) {
        const std::string name = at->path().filename().native();
        std::error_code unreadable;
        if (name.starts_with("libZOR") && name.ends_with(LIBRARY_SUFFIX) && at->is_regular_file(unreadable)) {
            names.push_back(toZORString(bridgeNameOf(at->path())));
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

ZORBridge ZORBridgeManager::load(const ZORString& nameOrFile) const {
    const std::string name(nameOrFile.view());
    fs::path file(name);
    if (name.find('/') == std::string::npos) {
        file = fs::absolute(fs::path(folder_.c_str()) / ("libZOR" + name + ".so"));
        if (std::error_code error; !fs::exists(file, error)) {
            requireFolder(folder_.c_str());
            fail("There is no bridge \"" + name + "\" in the folder " + quote(folder_.c_str()) + "." +
                 describeKnown(name, listBridges()));
        }
    }
    return ZORBridge(std::make_shared<const ZORBridge::Library>(file));
}
