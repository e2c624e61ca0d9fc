// readers/: from a real source to a model. A reader fills a ZORModel completely or fails with a message; it
// never hands over a half-built one. Readers know the model, never the bridge, the manager or the program
// that calls them.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "ZOR.h"

namespace readers {

/// Why a source gave no model.
class SourceError : public std::runtime_error {
  public:
    enum class Kind {
        CANNOT_OPEN,  ///< there is nothing to read: missing, not permitted, a folder, in exclusive use
        CANNOT_READ,  ///< there is something, but it is damaged or not understood
        INTERRUPTED,
        WRONG_OPTION  ///< the value of one of the reader's options is no good
    };
    /// `what` tells what is wrong and where, without the source's name in front; `hint` what to do, or
    /// nothing.
    SourceError(Kind kind, const std::string& what, std::string hint = {})
        : std::runtime_error(what), kind_(kind), hint_(std::move(hint)) {}
    Kind kind() const noexcept { return kind_; }
    const std::string& hint() const noexcept { return hint_; }

  private:
    Kind kind_;
    std::string hint_;
};

/// The value of one of the reader's options is no good; `what` does not name the option.
class WrongOption : public SourceError {
  public:
    WrongOption(std::string option, const std::string& what, std::string hint)
        : SourceError(Kind::WRONG_OPTION, what, std::move(hint)), option_(std::move(option)) {}
    /// Without dashes.
    const std::string& option() const noexcept { return option_; }

  private:
    std::string option_;
};

/// What a reader met and the model cannot hold.
class LossReport {
  public:
    struct Item {
        std::string kind;    ///< plural, in small letters: "collations", "partial-index conditions"
        std::string where;   ///< the object: "main.customer.name"
        std::string detail;  ///< what was lost, such as the collation's name; may be empty
    };
    void add(std::string kind, std::string where, std::string detail = {}) {
        items_.push_back({std::move(kind), std::move(where), std::move(detail)});
    }
    const std::vector<Item>& items() const noexcept { return items_; }
    bool isEmpty() const noexcept { return items_.empty(); }
    /// How many items there are of each kind, kinds in alphabetical order.
    std::map<std::string, std::size_t> countByKind() const;

  private:
    std::vector<Item> items_;
};

/// Which parts of a database are wanted. Names may hold the wildcards `*` and `?`; letter case counts unless
/// the source says otherwise. Of several patterns that match a name, the most specific decides: one without
/// wildcards, else the one with the most other characters. Of "SCHEMA.TABLE" the part for the schema decides
/// only between patterns whose parts for the table are equally specific. An exclusion wins a tie. A name that
/// no pattern matches is wanted unless there are including patterns.
struct Selection {
    std::vector<std::string> schemas;
    std::vector<std::string> excludedSchemas;
    std::vector<std::string> tables;  ///< "TABLE" or "SCHEMA.TABLE"; views too
    std::vector<std::string> excludedTables;
    bool views = true;
    bool triggers = true;

    bool hasPatterns() const noexcept {
        return !schemas.empty() || !excludedSchemas.empty() || !tables.empty() || !excludedTables.empty();
    }
};

/// What of a selection leaves something out.
enum class SelectionPart { SCHEMAS, EXCLUDED_SCHEMAS, TABLES, EXCLUDED_TABLES, VIEWS, TRIGGERS };

/// Something that the source has and the selection does not want.
struct Unselected {
    std::string kind;   ///< "table", "view" or "trigger"
    std::string where;  ///< "main.customer"
    SelectionPart by;
};

/// A source as it was named, with what is needed to recognise it.
class Source {
  public:
    /// A file. Throws SourceError when there is none, or it is a folder or cannot be read. A pipe is read to
    /// its end at once and counts as text.
    static Source fromFile(const std::string& path);
    /// Text that was read already, such as standard input; `name` is what messages call it.
    static Source fromText(std::string name, std::string text);

    /// What messages call the source: the path as it was given.
    const std::string& name() const noexcept { return name_; }
    /// Empty for a source that is not a file.
    const std::string& path() const noexcept { return path_; }
    /// The first bytes, at most 4096.
    std::string_view head() const noexcept { return head_; }
    /// The whole content. Throws SourceError. Behind the content's end so many NULs (`padding`) are readable,
    /// for parsers that read ahead; the capacity of the string is at least its size plus `padding`.
    std::string content(std::size_t padding = 0) const;
    /// The last part of the path without its extension: "shop" for "data/shop.sqlite" and
    /// "data/shop.model.json".
    std::string stem() const;

  private:
    std::string name_;
    std::string path_;
    std::string head_;
    std::optional<std::string> text_;
};

/// What is to be read, and how.
struct ReadRequest {
    std::string modelName;  ///< the name to give the model; empty for the reader's own choice
    Selection selection;    ///< left at its defaults for readers that do not take it
    std::map<std::string, std::string> options;  ///< values of the reader's own options, by name, checked
};

/// What a reader reports to while it works.
class ReadContext {
  public:
    virtual ~ReadContext() = default;
    /// Something that the user should know, as a sentence; `where` names the object.
    virtual void warn(const std::string& where, const std::string& text) = 0;
    /// So many objects have been read so far. Called every now and then; throws SourceError to interrupt.
    virtual void progress(std::uint64_t objects) = 0;

    LossReport losses;
    std::vector<Unselected> unselected;
};

struct ReaderOption {
    std::string name;  ///< as on the command line without dashes, such as "sample-rows"
    std::string description;
    std::string defaultValue;
    std::vector<std::string> permittedValues;  ///< empty: any text
};

/// What is known of a reader without reading anything.
struct ReaderDescription {
    std::string name;         ///< also the prefix of sources that name it: "sqlite" in "sqlite:shop.db"
    std::string title;        ///< "SQLite database"
    std::string recognition;  ///< how its sources are recognised, for the help
    /// Of the names of files, which still need the content of a source: ".db".
    std::vector<std::string> usualEndings = {};
    /// What is the matter with a file whose name ends so, when it is a source and not recognised.
    std::string unrecognised = {};
    std::string naturalView;   ///< "uml", "erd", "dbm" or "erd+dbm": the view that suits its sources
    std::string databaseType;  ///< what its sources call their database type, or empty
    bool takesSelection = false;
    std::vector<ReaderOption> options;
};

/// One kind of source.
class Reader {
  public:
    virtual ~Reader() = default;
    virtual const ReaderDescription& describe() const = 0;
    /// Whether the source looks like one of this reader's, by its first bytes and, where those do not tell,
    /// by its name.
    virtual bool identify(const Source& source) const = 0;
    /// Reads the source into a new model. Throws SourceError.
    virtual std::unique_ptr<ZORModel> read(const Source& source, const ReadRequest& request,
                                           ReadContext& context) const = 0;
};

/// All readers, in the order in which they are asked whether they recognise a source.
const std::vector<const Reader*>& allReaders();

}  // namespace readers
