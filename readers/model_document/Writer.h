#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ObjectIds.h"
#include "Vocabulary.h"
#include "ZOR.h"

namespace readers::document {

/// Writes one document, object by object, by the tables that the reader reads by.
class Writer {
  public:
    using Write = std::function<void(std::string_view)>;
    Writer(const ZORModel& model, const Write& write) : model_(model), ids_(model), write_(write) {}

    void writeDocument();
    /// How many texts were not UTF-8.
    std::uint64_t illFormedTexts() const noexcept { return illFormedTexts_; }

  private:
    /// A key with its value as it is written, or with the parts that are to be written behind it.
    struct Member {
        std::string text;                     ///< `"name": "customer"`; `"attributes": ` before a list
        std::vector<std::string> items = {};  ///< of a list of texts or references
        const Field* parts = nullptr;
    };

    // Objects (Writer.cpp)
    void writeObject(const Kind& kind, const ZORModelObject& object, std::size_t index, int depth);
    void writeMember(const Member& member, const ZORModelObject& object, int depth);
    void writeParts(const Field& field, const ZORModelObject& object, int depth);
    void startLine(int depth);
    void flush(std::size_t most);

    // Fields (WriterValues.cpp)
    std::vector<Member> membersOf(const Kind& kind, const ZORModelObject& object, std::size_t index);
    void addMember(std::vector<Member>& members, const Field& field, const ZORModelObject& object,
                   std::size_t index);
    std::string quote(std::string_view text);
    std::string idOf(const Field& field, const ZORObject& target);

    const ZORModel& model_;
    ObjectIds ids_;
    const Write& write_;
    std::string out_;
    std::uint64_t illFormedTexts_ = 0;
};

}  // namespace readers::document
