#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "DocumentText.h"
#include "IdTable.h"
#include "Reader.h"
#include "References.h"
#include "Vocabulary.h"
#include "ZOR.h"

namespace readers::document {

/// Builds the model that a document describes.
///
/// It goes through the document once, front to back, with a stack of its own: how deep a document is nested
/// costs it no stack. Every object is made, filled and given to its owner when it is met; references are tied
/// in the end.
class Builder {
  public:
    /// Packages nested deeper than this are refused: what works on a model recurses once per level.
    static constexpr int DEEPEST_NESTING = 1000;

    /// Behind the text, which holds no byte-order mark, DocumentText::PADDING zero bytes must be readable.
    Builder(std::string_view text, ReadContext& context) : document_(text), context_(context) {}

    /// Throws Refusal, or simdjson_error when the text is not JSON, or what the context throws.
    std::unique_ptr<ZORModel> build();

  private:
    using Value = simdjson::ondemand::value;
    using Array = simdjson::ondemand::array;
    using Object = simdjson::ondemand::object;

    /// An object of the document while it is being read.
    struct Frame {
        const Kind* kind = nullptr;
        ZORModelObject* object = nullptr;
        simdjson::ondemand::object_iterator fields;
        std::uint32_t start = 0;  ///< the object's offset
        std::uint32_t index = 0;  ///< the object's index in its list
        bool hasBegun = false;
        bool hasSpecialPart = false;  ///< a part has claimed what only one part may have
        std::size_t nextField = 0;    ///< which field is expected next, for a quick search
        std::uint64_t seen = 0;       ///< bit n: the n-th field was there
        References::Chain references;
        const Field* list = nullptr;  ///< the list of objects that is being read, and how far it is
        simdjson::ondemand::array_iterator elements;
        std::uint32_t elementCount = 0;
    };

    // Objects and lists of them (Builder.cpp)
    void readDocument();
    void readNext();
    void beginList(const Field& row, Value value);
    void beginElement();
    void beginObject(const Kind& kind, ZORModelObject& object, Object fields, std::size_t start,
                     std::uint32_t index);
    void endObject();
    void setDefaults(const Frame& frame) const;
    const Kind& chooseKind(const FamilyKinds& family, Object& object, std::size_t start);
    void refuseDuplicateIds();
    Frame& frame() noexcept { return frames_.back(); }

    // Fields and their values (BuilderValues.cpp)
    void readField(simdjson::ondemand::field field);
    static const Field* findField(Frame& frame, std::string_view key) noexcept;
    void readValue(const Field& row, Value value);
    void readTexts(const Field& row, Value value);
    void readReference(const Field& row, Value value);
    void readReferences(const Field& row, Value value);
    void readInteger(const Field& row, Value value);
    void readBoolean(const Field& row, Value value);
    void claimSpecialPart(const Field& row, Value value);
    void readId(const Field& row, Value value);
    void passOver(Value value) const;
    Text readText(const Field& row, Value value);
    Array readList(const Field& row, Value value) const;
    static std::int32_t numberOf(const Field& row, const Text& word);
    [[noreturn]] static void refuseKey(const Frame& frame, const Text& key);
    [[noreturn]] void refuse(Value value, std::string expected) const;

    DocumentText document_;
    ReadContext& context_;
    std::unique_ptr<ZORModel> model_;
    std::vector<Frame> frames_;
    IdTable ids_;
    References references_;
    std::uint64_t objectCount_ = 0;
    int packageDepth_ = 0;
};

}  // namespace readers::document
