// Elements, attributes, references: every byte of a document but its declaration passes through here. One
// attribute stands on a line; identifiers are written "_N" and references "#_N".

#include "MicrosoftSqlServerMdsMdcExport.h"

namespace {

// The attribute state: whether the start tag's first line is still unfinished.
constexpr int TAG_LINE_OPEN = 1;
constexpr int ATTRIBUTE_LINES_WRITTEN = 2;

}  // namespace

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

void Bridge::startTag(const ZORString& tag, ZORModelObject* object, MDCSubjectArea area, bool unnamed) {
    const int id = getXMLID(object, area);
    tellWritten(object, tag);
    writeTagStart(tag, id);
    if (area == DBM && !object->getPhysicalName().isEmpty()) {
        writeTagName(object->getPhysicalName());
    } else if (!object->getName().isEmpty()) {
        writeTagName(object->getName());
    } else if (unnamed) {
        writeUnnamed(id);
    }
    writeTexts(object);
}

void Bridge::startTag(const ZORString& tag, ZORModelObject* object, int id, bool unnamed, bool keepOpen) {
    if (id == 0) {
        id = getUniqueID();
    }
    writeTagStart(tag, id);
    if (object != nullptr) {
        tellWritten(object, tag);
        if (!object->getName().isEmpty()) {
            writeTagName(object->getName());
        }
        writeTexts(object);
    } else if (unnamed) {
        writeUnnamed(id);
    }
    if (!keepOpen) {
        closeTag(false);
    }
}

void Bridge::startTag(const ZORString& tag, bool keepOpen) {
    pushIndentation();
    attributeState_ = TAG_LINE_OPEN;
    if (keepOpen) {
        file_.print('<', tag);
    } else {
        file_.printLine('<', tag, '>');
    }
}

void Bridge::propertyAttribute(const ZORString& name, const ZORString& value, bool skipEmpty) {
    if (value.isEmpty() && skipEmpty) {
        return;
    }
    beginAttribute(name);
    writeXMLText(value);
    endAttribute();
}

void Bridge::propertyAttribute(const ZORString& name, const char* value) {
    if (value == nullptr) {
        return;
    }
    beginAttribute(name);
    file_.printLine(std::string_view(value), '"');
}

void Bridge::propertyAttribute(const ZORString& name, int value) {
    beginAttribute(name);
    file_.printLine(value, '"');
}

void Bridge::closeTag(bool empty) {
    if (attributeState_ == TAG_LINE_OPEN) {
        file_.printLine(std::string_view(empty ? "/>" : ">"));
        if (empty) {
            shortenIndentation();
        }
        return;
    }
    popIndentation();
    file_.printLine(std::string_view(empty ? "/>" : ">"));
    if (!empty) {
        lengthenIndentation();
    }
}

void Bridge::endTag(const ZORString& tag) {
    popIndentation();
    file_.printLine("</", tag, '>');
}

void Bridge::linkTag(const ZORString& tag, ZORModelObject* object, MDCSubjectArea area) {
    linkTag(tag, getXMLID(object, area));
}

void Bridge::linkTag(const ZORString& tag, int id) {
    writeIndentation();
    file_.printLine('<', tag, " oim:href=\"#_", id, "\"/>");
}

void Bridge::flagAttribute(const ZORString& name, bool value, bool force) {
    if (value || force) {
        propertyAttribute(name, value ? "1" : "0");
    }
}

void Bridge::pushIndentation() {
    writeIndentation();
    lengthenIndentation();
}

void Bridge::popIndentation() {
    shortenIndentation();
    writeIndentation();
}

void Bridge::writeIndentation() {
    if (!indentationUnit_.isEmpty()) {
        file_ << currentIndentation_;
    }
}

void Bridge::lengthenIndentation() {
    if (!indentationUnit_.isEmpty()) {
        currentIndentation_.append(indentationUnit_.view());
    }
}

void Bridge::shortenIndentation() {
    if (!indentationUnit_.isEmpty() && currentIndentation_.length() >= indentationUnit_.length()) {
        currentIndentation_.truncate(currentIndentation_.length() - indentationUnit_.length());
    }
}

void Bridge::writeTagStart(const ZORString& tag, int id) {
    pushIndentation();
    file_.print('<', tag, " oim:id=\"_", id, '"');
    attributeState_ = TAG_LINE_OPEN;
    countElement();
}

void Bridge::writeTagName(const ZORString& name) {
    file_ << " name=\"";
    writeXMLText(name);
    file_ << '"';
}

void Bridge::writeUnnamed(int id) {
    file_.print(" name=\"unnamed$", id, '"');
}

void Bridge::writeTexts(ZORModelObject* object) {
    propertyAttribute("description"_z, object->getDescription(), true);
    propertyAttribute("comments"_z, object->getComments(), true);
}

void Bridge::beginAttribute(const ZORString& name) {
    if (attributeState_ == TAG_LINE_OPEN) {
        file_.endLine();
        attributeState_ = ATTRIBUTE_LINES_WRITTEN;
    }
    writeIndentation();
    file_.print(name, "=\"");
}

void Bridge::endAttribute() {
    file_.printLine('"');
}
