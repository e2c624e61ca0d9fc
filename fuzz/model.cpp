// Any sound model, with any options: the bytes are the choices that both are made of.

#include <array>

#include "ModelMaker.h"
#include "ReaderFuzzing.h"

namespace {

constexpr std::array VIEWS = {"UML", "ERD", "DBM", "ERD and DBM"};
constexpr std::array SUPPORT = {"Enabled", "Partial", "Disabled"};
constexpr std::array INDENTATIONS = {"", "  ", "\t"};
constexpr std::array ERD_SETS = {"Default", "XML Datatypes", "None", "SQL Server 7.x"};
constexpr std::array DBM_SETS = {"SQL Server 7.x", "Oracle 8.x", "Access 97", "DB2/UDB 5", "None"};

template <typename Values>
const char* pick(fuzz::Choices& choices, const Values& values) {
    return values[choices.below(values.size())];
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Choices choices(data, size);
    std::map<std::string, std::string> settings;
    settings["Model"] = pick(choices, VIEWS);
    settings["UML 1.3 Support"] = pick(choices, SUPPORT);
    settings["MS Repository"] = choices.either() ? "True" : "False";
    settings["XML Indentation (pretty printing)"] = pick(choices, INDENTATIONS);
    settings["ERD TypeSet"] = pick(choices, ERD_SETS);
    settings["DBM TypeSet"] = pick(choices, DBM_SETS);
    fuzz::exportSound(*fuzz::ModelMaker(choices).make(), settings);
    return 0;
}
