#pragma once

#include <memory>

#include "ZOR.h"
#include "ZORBridgeLib.h"

/// An export bridge that was loaded from its library. Copies share the library, which is unloaded with the
/// last.
class ZORBridge {
  public:
    /// The path of the library that was loaded.
    const ZORString& getPath() const noexcept;
    /// The bridge's name: that of its library without "lib" and "ZOR" in front and ".so" behind.
    const ZORString& getName() const noexcept;

    /// Replaces what is in the list by the bridge's options, set to their defaults.
    void getOptionList(ZOROptionList& options) const;
    ZORBridgeSpecification getSpecification() const;
    /// The base name of the document that tells what the bridge writes for which part of a model.
    ZORString getMappingSpecificationXmlFile() const;
    /// The path of that document, which stands beside the library; empty when there is none.
    ZORString findMappingSpecification() const;

    /// Checks the model and runs the export. Throws a ZORException when the model is unsound (its text then
    /// lists what is wrong, a line each) or the export fails; the model is as before in either case.
    void run(ZORModel& model, ZOROptionList& options, ZORLog& log) const;

    /// Whether the bridge tells what it would write, which is for a bridge to offer or not.
    bool canInspect() const noexcept;
    /// Checks the model and lets the bridge tell the observer what it would write of it. Throws a
    /// ZORException when the model is unsound, the bridge cannot inspect, or it fails.
    void inspect(ZORModel& model, ZOROptionList& options, ZORLog& log, ZORExportObserver& observer) const;

    /// The bridge's own interface object.
    ZORBridgeExportInterface& getInterface() const noexcept;

  private:
    friend class ZORBridgeManager;
    struct Library;
    explicit ZORBridge(std::shared_ptr<const Library> library) : library_(std::move(library)) {}
    std::shared_ptr<const Library> library_;
};

/// Finds and loads bridges.
class ZORBridgeManager {
  public:
    /// Looks for bridges in the folder; an empty one stands for the value of the environment variable
    /// ZOR_BRIDGE_PATH or, where that is not set, for the folder "zor/bridges" beside this library.
    explicit ZORBridgeManager(ZORString folder = {});

    const ZORString& getFolder() const noexcept { return folder_; }
    /// The names of the bridges in the folder, in alphabetical order.
    std::vector<ZORString> listBridges() const;
    /// Loads a bridge by its name or, when the argument holds a "/", from that file. Throws a ZORException of
    /// one sentence when there is no such file or bridge (the nearest names are in it), or it is not a
    /// bridge.
    ZORBridge load(const ZORString& nameOrFile) const;

  private:
    ZORString folder_;
};
