#include "ModelDump.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <typeinfo>
#include <unordered_map>
#include <vector>

#include "ModelFields.h"

namespace support {

namespace {

/// Collects the parts of an object.
class Parts {
  public:
    explicit Parts(std::vector<const ZORObject*>& found) : found_(found) {}

    template <typename Part>
    void parts(const char* /*name*/, const ZORVector<Part*>& list) {
        std::copy_if(list.begin(), list.end(), std::back_inserter(found_),
                     [](const Part* part) { return part != nullptr; });
    }
    template <typename Value>
    void number(const char* /*name*/, Value /*value*/) {}
    void text(const char* /*name*/, const ZORString& /*value*/) {}
    void flag(const char* /*name*/, bool /*value*/) {}
    void reference(const char* /*name*/, const ZORObject* /*object*/) {}
    template <typename Object>
    void references(const char* /*name*/, const ZORVector<Object*>& /*list*/) {}

  private:
    std::vector<const ZORObject*>& found_;
};

/// Gives every object of a model its number. A stack of its own keeps the depth of nesting off the program's.
class Numbers {
  public:
    explicit Numbers(const ZORModel& model) {
        std::vector<const ZORObject*> open{&model};
        while (!open.empty()) {
            const ZORObject* object = open.back();
            open.pop_back();
            if (!numbers_.emplace(object, objects_.size()).second) {
                continue;
            }
            objects_.push_back(object);
            const auto first = static_cast<std::ptrdiff_t>(open.size());
            Parts collector(open);
            describe(*object, collector);
            std::reverse(open.begin() + first, open.end());
        }
    }

    /// In the order of the walk, so that an object's number is its index.
    const std::vector<const ZORObject*>& objects() const { return objects_; }
    /// An object that is no part of the model is numbered by its first mention; nothing else is known of it.
    std::string nameOf(const ZORObject* object) {
        if (object == nullptr) {
            return "null";
        }
        if (const auto found = numbers_.find(object); found != numbers_.end()) {
            return "#" + std::to_string(found->second);
        }
        return "outside" + std::to_string(outside_.emplace(object, outside_.size()).first->second);
    }

  private:
    std::vector<const ZORObject*> objects_;
    std::unordered_map<const ZORObject*, std::size_t> numbers_;
    std::unordered_map<const ZORObject*, std::size_t> outside_;
};

/// Of the compiler's name for the class, what can be read.
const char* classOf(const ZORObject& object) {
    const char* name = typeid(object).name();
    return name + std::strspn(name, "0123456789");
}

std::string quote(const ZORString& value) {
    std::string quoted = "\"";
    for (const char character : value.view()) {
        if (character == '\n') {
            quoted += "\\n";
        } else if (character == '"' || character == '\\') {
            quoted.append({'\\', character});
        } else {
            quoted += character;
        }
    }
    return quoted + "\"";
}

/// Writes what an object holds, a line each; defaults are left out.
class Lines {
  public:
    Lines(Numbers& numbers, std::string& lines) : numbers_(numbers), lines_(lines) {}

    void text(const char* name, const ZORString& value) {
        if (!value.isEmpty()) {
            line(name, quote(value));
        }
    }
    template <typename Value>
    void number(const char* name, Value value) {
        if (value != Value{}) {
            line(name, std::to_string(static_cast<int>(value)));
        }
    }
    void flag(const char* name, bool value) {
        if (value) {
            line(name, "true");
        }
    }
    void reference(const char* name, const ZORObject* object) {
        if (object != nullptr) {
            line(name, numbers_.nameOf(object));
        }
    }
    template <typename Object>
    void references(const char* name, const ZORVector<Object*>& list) {
        if (list.isEmpty()) {
            return;
        }
        std::string names;
        for (const Object* object : list) {
            names += (names.empty() ? "" : " ") + numbers_.nameOf(object);
        }
        line(name, names);
    }
    template <typename Part>
    void parts(const char* name, const ZORVector<Part*>& list) {
        references(name, list);
    }

  private:
    void line(const char* name, const std::string& value) {
        lines_.append("  ").append(name).append(" ").append(value).append("\n");
    }

    Numbers& numbers_;
    std::string& lines_;
};

}  // namespace

std::string dumpModel(const ZORModel& model) {
    Numbers numbers(model);
    std::string text;
    Lines lines(numbers, text);
    for (const ZORObject* object : numbers.objects()) {
        text += numbers.nameOf(object) + " code " + std::to_string(object->getElementType()) + " class " +
                classOf(*object) + "\n";
        describe(*object, lines);
    }
    return text;
}

}  // namespace support
