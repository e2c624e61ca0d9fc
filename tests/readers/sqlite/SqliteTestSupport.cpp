#include "SqliteTestSupport.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "sqlite/SqliteReaders.h"

namespace support {

namespace {

constexpr std::array<std::string_view, 6> ACTIONS = {"none",     "set default", "no action",
                                                     "restrict", "cascade",     "set null"};

std::string listOf(const ZORVector<ZORAttribute*>& attributes) {
    std::string list;
    for (const ZORAttribute* attribute : attributes) {
        list += (list.empty() ? "" : ", ") + std::string(attribute->getName().view());
    }
    return "(" + list + ")";
}

std::string referencedBy(const ZORForeignKey& key) {
    std::string list;
    for (const ZORAttribute* attribute : key.getAttributes()) {
        for (const ZORAssociationRoleNameMap* map : attribute->getRoleNameMaps()) {
            if (map->getForeignKey() == &key) {
                list +=
                    (list.empty() ? "" : ", ") + std::string(map->getReferencedAttribute()->getName().view());
            }
        }
    }
    return "(" + list + ")";
}

std::string describeType(const ZORType& type) {
    std::string text(type.getName().view());
    if (type.getBaseType() != nullptr) {
        text += " (" + std::string(type.getBaseType()->getName().view());
        const char* between = ": ";
        for (const ZORTypeValue* value : type.getTypeValues()) {
            text += between + std::string(value->getValue().view());
            between = "|";
        }
        text += ")";
    }
    return text;
}

class Describer {
  public:
    std::string describe(const ZORModel& model) {
        for (const ZORPackage* child : model.getChildPackages()) {
            if (child->getElementType() == ZOR_DESIGN_PACKAGE) {
                for (const ZORModelElement* element :
                     static_cast<const ZORDesignPackage*>(child)->getModelElements()) {
                    describeElement(*element);
                }
            }
        }
        return out_.str();
    }

  private:
    void describeElement(const ZORModelElement& element) {
        if (element.getElementType() == ZOR_CLASS) {
            describeTable(static_cast<const ZORClass&>(element));
        } else if (element.getElementType() == ZOR_SQL_VIEW_ENTITY) {
            describeView(static_cast<const ZORSQLViewEntity&>(element));
        } else {
            describeAssociation(static_cast<const ZORAssociation&>(element));
        }
    }

    void describeTable(const ZORClass& table) {
        out_ << "table " << table.getName().view() << "\n";
        for (const ZORAttribute* column : table.getAttributes()) {
            out_ << "  " << column->getName().view() << " " << describeType(*column->getType())
                 << (column->isOptional() ? " null" : "");
            if (!column->getInitialValue().isEmpty()) {
                out_ << " = " << column->getInitialValue().view();
            }
            if (!column->getComments().isEmpty()) {
                out_ << " -- " << column->getComments().view();
            }
            out_ << "\n";
        }
        for (const ZORKey* key : table.getKeys()) {
            describeKey(*key);
        }
        for (const ZORIndex* index : table.getIndexes()) {
            describeIndex(*index);
        }
        describeTriggers(table.getOperations());
    }

    void describeKey(const ZORKey& key) {
        if (key.getElementType() == ZOR_FOREIGN_KEY) {
            const auto& foreign = static_cast<const ZORForeignKey&>(key);
            out_ << "  foreign " << key.getName().view() << " " << listOf(key.getAttributes()) << " -> "
                 << foreign.getCandidateKey()->getAssociatedClass()->getName().view() << "."
                 << foreign.getCandidateKey()->getName().view() << " " << referencedBy(foreign) << "\n";
            return;
        }
        const auto& candidate = static_cast<const ZORCandidateKey&>(key);
        out_ << "  " << (candidate.getPrimaryOfClass() != nullptr ? "primary " : "unique ")
             << key.getName().view() << " " << listOf(key.getAttributes())
             << (candidate.isUnique() ? "" : " not unique") << "\n";
    }

    void describeIndex(const ZORIndex& index) {
        out_ << "  " << (index.isUnique() ? "unique index " : "index ") << index.getName().view() << " (";
        const char* between = "";
        for (const ZORIndexMember* member : index.getIndexMembers()) {
            out_ << between << member->getAttribute()->getName().view()
                 << (member->getSortOrder() == ZOR_SORT_DESCENDING ? " desc" : "");
            between = ", ";
        }
        out_ << ")";
        if (index.getKey() != nullptr) {
            out_ << " backs " << index.getKey()->getName().view();
        }
        out_ << "\n";
    }

    void describeTriggers(const ZORVector<ZOROperation*>& operations) {
        for (const ZOROperation* operation : operations) {
            const auto& trigger = static_cast<const ZORTrigger&>(*operation);
            out_ << "  trigger " << trigger.getName().view() << (trigger.isAfter() ? " after" : " before")
                 << (trigger.isInsert() ? " insert" : "") << (trigger.isUpdate() ? " update" : "")
                 << (trigger.isDelete() ? " delete" : "") << ": " << trigger.getBody().view() << "\n";
        }
    }

    void describeView(const ZORSQLViewEntity& view) {
        out_ << "view " << view.getName().view() << ": " << view.getSQLText().view() << "\n";
        for (const ZORSQLViewAttribute* column : view.getSQLViewAttributes()) {
            out_ << "  " << column->getName().view();
            if (column->getType() != nullptr) {
                out_ << " " << column->getType()->getName().view();
            }
            if (const auto* source = static_cast<const ZORAttribute*>(column->getSource())) {
                out_ << " <- " << source->getAssociatedClass()->getName().view() << "."
                     << source->getName().view();
            }
            out_ << "\n";
        }
        describeTriggers(view.getOperations());
    }

    void describeAssociation(const ZORAssociation& association) {
        out_ << "relationship " << association.getName().view() << ":";
        const char* between = " ";
        for (const ZORAssociationRole* role : association.getRoles()) {
            out_ << between << role->getAssociatedClass()->getName().view() << " "
                 << role->getMultiplicity().view();
            between = ", ";
        }
        const ZORAssociationRole& role = *association.getRoles()[0];
        out_ << ", delete " << ACTIONS[static_cast<std::size_t>(role.getDeleteRule())] << ", update "
             << ACTIONS[static_cast<std::size_t>(role.getUpdateRule())] << "\n";
    }

    std::ostringstream out_;
};

std::string textOf(const readers::SourceError& error) {
    constexpr std::array<std::string_view, 4> KINDS = {"CANNOT_OPEN", "CANNOT_READ", "INTERRUPTED",
                                                       "WRONG_OPTION"};
    const std::string kind(KINDS[static_cast<std::size_t>(error.kind())]);
    return kind + ": " + error.what() + (error.hint().empty() ? "" : " [" + error.hint() + "]");
}

}  // namespace

ScratchFolder::ScratchFolder() {
    std::string pattern = testing::TempDir() + "sqliteXXXXXX";
    path_ = ::mkdtemp(pattern.data());
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

void makeDatabase(const std::string& path, std::string_view sql) {
    sqlite3* database = nullptr;
    sqlite3_open(path.c_str(), &database);
    char* message = nullptr;
    sqlite3_exec(database, std::string(sql).c_str(), nullptr, nullptr, &message);
    if (message != nullptr) {
        ADD_FAILURE() << message << "\nin: " << sql;
        sqlite3_free(message);
    }
    sqlite3_close(database);
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void write(const std::string& path, std::string_view content) {
    std::ofstream(path, std::ios::binary) << content;
}

void RecordingContext::warn(const std::string& where, const std::string& text) {
    warnings.push_back(where + ": " + text);
}

void RecordingContext::progress(std::uint64_t count) {
    objects = count;
    if (interruptAfterCalls != 0 && ++calls_ >= interruptAfterCalls) {
        throw readers::SourceError(readers::SourceError::Kind::INTERRUPTED, "interrupted");
    }
}

std::vector<std::string> RecordingContext::lossLines() const {
    std::vector<std::string> lines;
    for (const readers::LossReport::Item& item : losses.items()) {
        lines.push_back(item.kind + ": " + item.where + (item.detail.empty() ? "" : ": " + item.detail));
    }
    return lines;
}

Reading readDatabase(std::string_view sql, const readers::ReadRequest& request) {
    const ScratchFolder folder;
    const std::string path = folder / "sample.db";
    makeDatabase(path, sql);
    Reading reading;
    reading.model =
        readers::sqliteDatabaseReader().read(readers::Source::fromFile(path), request, reading.context);
    return reading;
}

Reading readScript(std::string_view sql, const readers::ReadRequest& request) {
    Reading reading;
    reading.model = readers::sqlScriptReader().read(readers::Source::fromText("script.sql", std::string(sql)),
                                                    request, reading.context);
    return reading;
}

std::string errorOf(const readers::Reader& reader, const readers::Source& source,
                    const readers::ReadRequest& request) {
    try {
        RecordingContext context;
        reader.read(source, request, context);
    } catch (const readers::SourceError& error) {
        return textOf(error);
    }
    return "no error";
}

std::string errorOfScript(std::string_view sql) {
    return errorOf(readers::sqlScriptReader(), readers::Source::fromText("script.sql", std::string(sql)));
}

std::string describe(const ZORModel& model) {
    return Describer().describe(model);
}

}  // namespace support
