#include "Writer.h"

#include "ModelDocumentWriter.h"

namespace readers {

namespace document {

namespace {

constexpr std::size_t INDENT = 2;
/// An object without parts stands on one line if that is no longer.
constexpr std::size_t LONGEST_LINE = 120;
constexpr std::size_t PORTION = std::size_t{1} << 16U;

std::string join(const std::vector<std::string>& items) {
    std::string text;
    for (const std::string& item : items) {
        text += (text.empty() ? "" : ", ") + item;
    }
    return text;
}

}  // namespace

void Writer::writeDocument() {
    writeObject(kindsOf(Family::DOCUMENT).kinds.front(), model_, 0, 0);
    out_ += "\n";
    flush(0);
}

void Writer::writeObject(const Kind& kind, const ZORModelObject& object, std::size_t index, int depth) {
    const std::vector<Member> members = membersOf(kind, object, index);
    if (members.empty()) {
        out_ += "{}";
        return;
    }
    std::string line = "{ ";
    bool hasParts = false;
    for (const Member& member : members) {
        hasParts = hasParts || member.parts != nullptr;
        line += (&member == &members.front() ? "" : ", ") + member.text;
        line += member.items.empty() ? std::string() : "[" + join(member.items) + "]";
    }
    line += " }";
    if (!hasParts && line.size() + INDENT * static_cast<std::size_t>(depth) <= LONGEST_LINE) {
        out_ += line;
        return;
    }
    out_ += "{";
    for (const Member& member : members) {
        out_ += &member == &members.front() ? "" : ",";
        startLine(depth + 1);
        writeMember(member, object, depth + 1);
    }
    startLine(depth);
    out_ += "}";
}

void Writer::writeMember(const Member& member, const ZORModelObject& object, int depth) {
    out_ += member.text;
    if (member.parts != nullptr) {
        writeParts(*member.parts, object, depth);
    }
    if (member.items.empty()) {
        return;
    }
    const std::string line = join(member.items);
    if (line.size() + member.text.size() + INDENT * static_cast<std::size_t>(depth) < LONGEST_LINE) {
        out_ += "[" + line + "]";
        return;
    }
    out_ += "[";
    for (const std::string& item : member.items) {
        out_ += &item == &member.items.front() ? "" : ",";
        startLine(depth + 1);
        out_ += item;
    }
    startLine(depth);
    out_ += "]";
}

void Writer::writeParts(const Field& field, const ZORModelObject& object, int depth) {
    const auto write = [&](std::size_t index, int partDepth) {
        const ZORObject& part = *field.getObject(object, index);
        writeObject(kindOf(field.family, part), static_cast<const ZORModelObject&>(part), index, partDepth);
        flush(PORTION);
    };
    if (field.shape == Shape::OBJECT) {
        write(0, depth);
        return;
    }
    out_ += "[";
    for (std::size_t i = 0; i < field.count(object); ++i) {
        out_ += i == 0 ? "" : ",";
        startLine(depth + 1);
        write(i, depth + 1);
    }
    startLine(depth);
    out_ += "]";
}

void Writer::startLine(int depth) {
    out_.append("\n").append(INDENT * static_cast<std::size_t>(depth), ' ');
}

/// Hands over what was written when it is more than that.
void Writer::flush(std::size_t most) {
    if (out_.size() > most) {
        write_(out_);
        out_.clear();
    }
}

}  // namespace document

std::uint64_t writeModelDocument(const ZORModel& model, const std::function<void(std::string_view)>& write) {
    document::Writer writer(model, write);
    writer.writeDocument();
    return writer.illFormedTexts();
}

}  // namespace readers
