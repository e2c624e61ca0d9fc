#include "ZORFunctions.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>
#include <unordered_set>

namespace {

/// The table's attribute that the column shows, or null when it shows something else.
const ZORAttribute* getSourceAttribute(const ZORSQLViewAttribute& column) {
    const ZORModelObject* source = column.getSource();
    if (source == nullptr || !source->isInstanceOf(ZOR_ATTRIBUTE)) {
        return nullptr;
    }
    const auto* attribute = static_cast<const ZORAttribute*>(source);
    return attribute->getAssociatedClass() == nullptr ? nullptr : attribute;
}

void appendColumn(ZORString& statement, const ZORSQLViewAttribute& column, const ZORAttribute* source) {
    std::string_view shown;
    if (source == nullptr) {
        statement.append("NULL");
    } else {
        shown = getPhysicalName(*source);
        statement.append(getPhysicalName(*source->getAssociatedClass())).append('.').append(shown);
    }
    if (!column.getName().isEmpty() && column.getName() != shown) {
        statement.append(" AS ").append(column.getName());
    }
}

bool isUnbounded(std::string_view text) noexcept {
    return text.size() == 1 && std::string_view("*nNmM").find(text[0]) != std::string_view::npos;
}

/// A number without a sign. False when it is none, or greater than an int.
bool decodeNumber(std::string_view text, int& number) noexcept {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && text[0] != '-';
}

/// One part of a multiplicity. False when it is not readable, or its bounds are the wrong way round.
bool decodeRange(std::string_view text, int& lower, int& upper) noexcept {
    const std::size_t dots = text.find("..");
    if (isUnbounded(text)) {
        lower = 0;
        upper = ZOR_UNBOUNDED;
    } else if (dots == std::string_view::npos) {
        if (!decodeNumber(text, lower)) {
            return false;
        }
        upper = lower;
    } else {
        const std::string_view upperText = text.substr(dots + 2);
        upper = ZOR_UNBOUNDED;
        if (!decodeNumber(text.substr(0, dots), lower) ||
            (!isUnbounded(upperText) && !decodeNumber(upperText, upper))) {
            return false;
        }
    }
    return lower <= upper;
}

bool decodeRanges(std::string_view text, int& lower, int& upper) noexcept {
    lower = ZOR_UNBOUNDED;
    upper = 0;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(',', start), text.size());
        int partLower = 0;
        int partUpper = 0;
        if (!decodeRange(text.substr(start, end - start), partLower, partUpper)) {
            return false;
        }
        lower = std::min(lower, partLower);
        upper = std::max(upper, partUpper);
        start = end + 1;
    }
    return true;
}

}  // namespace

const ZORString& getPhysicalName(const ZORModelObject& object) {
    return object.getPhysicalName().isEmpty() ? object.getName() : object.getPhysicalName();
}

ZORString computeSqlViewSelectStatement(const ZORSQLViewEntity& view) {
    ZORString columns;
    ZORString tables;
    std::unordered_set<const ZORClass*> seen;
    for (const ZORSQLViewAttribute* column : view.getSQLViewAttributes()) {
        const ZORAttribute* source = getSourceAttribute(*column);
        columns.append(columns.isEmpty() ? "SELECT " : ", ");
        appendColumn(columns, *column, source);
        if (source != nullptr && seen.insert(source->getAssociatedClass()).second) {
            tables.append(tables.isEmpty() ? " FROM " : ", ")
                .append(getPhysicalName(*source->getAssociatedClass()));
        }
    }
    return tables.isEmpty() ? ZORString() : columns + tables;
}

void decodeMultiplicity(const ZORString& text, int& lower, int& upper) {
    std::string compact(text.view());
    std::erase_if(
        compact, [](char character) { return character == ' ' || (character >= '\t' && character <= '\r'); });
    if (!decodeRanges(compact, lower, upper)) {
        lower = 1;
        upper = 1;
    }
}
