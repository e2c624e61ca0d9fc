#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// Writes one JSON value into a string: begin and end calls for objects and lists, keys before values. Text
/// is made well-formed: ill-formed UTF-8 becomes U+FFFD.
class JsonWriter {
  public:
    /// With `indent` 0 everything stands on one line.
    explicit JsonWriter(unsigned indent = 0) : indent_(indent) {}

    JsonWriter& beginObject() { return begin('{'); }
    JsonWriter& endObject() { return end('}'); }
    JsonWriter& beginList() { return begin('['); }
    JsonWriter& endList() { return end(']'); }
    JsonWriter& key(std::string_view name);
    JsonWriter& value(std::string_view text);
    JsonWriter& value(const char* text) { return value(std::string_view(text)); }
    JsonWriter& value(bool flag) { return raw(flag ? "true" : "false"); }
    template <std::integral Number>
    JsonWriter& value(Number number) {
        return raw(std::to_string(number));
    }
    /// A value that is JSON already.
    JsonWriter& raw(std::string_view json);

    template <typename Value>
    JsonWriter& member(std::string_view name, const Value& memberValue) {
        return key(name).value(memberValue);
    }

    const std::string& text() const noexcept { return out_; }

  private:
    JsonWriter& begin(char bracket);
    JsonWriter& end(char bracket);
    void separate();
    void breakLine();

    std::string out_;
    std::vector<bool> hasItems_;
    unsigned indent_;
    bool afterKey_ = false;
};

}  // namespace cli
