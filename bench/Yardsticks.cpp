#include "Yardsticks.h"

#include <fcntl.h>
#include <libxml/xmlreader.h>
#include <libxml/xmlwriter.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace bench {
namespace {

[[noreturn]] void fail(const std::string& what, const std::string& path) {
    throw std::runtime_error(what + " \"" + path + "\": " + std::strerror(errno));
}

const xmlChar* xml(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

const char* plain(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

/// Enough for any of the attribute values, so that one chunk holds many of them.
constexpr std::size_t CHUNK_SIZE = std::size_t{1} << 20;

using Reader = std::unique_ptr<xmlTextReader, decltype(&xmlFreeTextReader)>;
using Writer = std::unique_ptr<xmlTextWriter, decltype(&xmlFreeTextWriter)>;

}  // namespace

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    if (!file || !(content << file.rdbuf())) {
        fail("cannot read", path);
    }
    return std::move(content).str();
}

void writeRaw(const std::string& path, const std::string& bytes) {
    constexpr std::size_t BLOCK = std::size_t{1} << 20;
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        fail("cannot open", path);
    }
    for (std::size_t at = 0; at < bytes.size(); at += BLOCK) {
        const std::size_t count = std::min(BLOCK, bytes.size() - at);
        if (::write(descriptor, bytes.data() + at, count) != static_cast<ssize_t>(count)) {
            ::close(descriptor);
            fail("cannot write", path);
        }
    }
    if (::close(descriptor) != 0) {
        fail("cannot close", path);
    }
}

void flushToDisk(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0) {
        fail("cannot open", path);
    }
    const bool flushed = ::fsync(descriptor) == 0;
    ::close(descriptor);
    if (!flushed) {
        fail("cannot flush", path);
    }
}

RecordedDocument::RecordedDocument(const std::string& path) {
    const Reader reader(
        xmlReaderForFile(path.c_str(), nullptr, XML_PARSE_NOENT | XML_PARSE_HUGE | XML_PARSE_NONET),
        xmlFreeTextReader);
    int more = reader == nullptr ? -1 : xmlTextReaderRead(reader.get());
    for (; more == 1; more = xmlTextReaderRead(reader.get())) {
        const int type = xmlTextReaderNodeType(reader.get());
        if (type == XML_READER_TYPE_ELEMENT) {
            const bool isEmpty = xmlTextReaderIsEmptyElement(reader.get()) == 1;
            calls_.push_back(
                {Kind::START_ELEMENT, keepName(plain(xmlTextReaderConstName(reader.get()))), nullptr});
            while (xmlTextReaderMoveToNextAttribute(reader.get()) == 1) {
                calls_.push_back({Kind::ATTRIBUTE, keepName(plain(xmlTextReaderConstName(reader.get()))),
                                  keepValue(plain(xmlTextReaderConstValue(reader.get())))});
            }
            if (isEmpty) {
                calls_.push_back({Kind::END_ELEMENT, nullptr, nullptr});
            }
        } else if (type == XML_READER_TYPE_END_ELEMENT) {
            calls_.push_back({Kind::END_ELEMENT, nullptr, nullptr});
        }
    }
    if (more != 0) {
        throw std::runtime_error("\"" + path + "\" is not a well-formed document");
    }
}

const char* RecordedDocument::keepName(const char* name) {
    const auto found = names_.find(std::string_view(name));
    return (found != names_.end() ? found : names_.emplace(name).first)->c_str();
}

const char* RecordedDocument::keepValue(const char* value) {
    const std::size_t size = std::strlen(value) + 1;
    if (values_.empty() || values_.back().capacity() - values_.back().size() < size) {
        values_.emplace_back();
        values_.back().reserve(std::max(CHUNK_SIZE, size));
    }
    const std::size_t at = values_.back().size();
    return values_.back().append(value, size).data() + at;
}

void RecordedDocument::writeWithLibxml2(const std::string& path) const {
    const Writer writer(xmlNewTextWriterFilename(path.c_str(), 0), xmlFreeTextWriter);
    if (writer == nullptr) {
        fail("cannot open", path);
    }
    xmlTextWriterSetIndent(writer.get(), 1);
    xmlTextWriterSetIndentString(writer.get(), xml(""));
    bool written = xmlTextWriterStartDocument(writer.get(), nullptr, "UTF-8", nullptr) >= 0;
    for (const Call& call : calls_) {
        switch (call.kind) {
            case Kind::START_ELEMENT:
                written &= xmlTextWriterStartElement(writer.get(), xml(call.name)) >= 0;
                break;
            case Kind::ATTRIBUTE:
                written &= xmlTextWriterWriteAttribute(writer.get(), xml(call.name), xml(call.value)) >= 0;
                break;
            case Kind::END_ELEMENT:
                written &= xmlTextWriterEndElement(writer.get()) >= 0;
                break;
        }
    }
    written &= xmlTextWriterEndDocument(writer.get()) >= 0;
    if (!written) {
        fail("cannot write", path);
    }
}

bool RecordedDocument::operator==(const RecordedDocument& other) const {
    const auto same = [](const char* a, const char* b) {
        return a == b || (a != nullptr && b != nullptr && std::strcmp(a, b) == 0);
    };
    return std::equal(calls_.begin(), calls_.end(), other.calls_.begin(), other.calls_.end(),
                      [&](const Call& a, const Call& b) {
                          return a.kind == b.kind && same(a.name, b.name) && same(a.value, b.value);
                      });
}

}  // namespace bench
