// Writing a tree.
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "entry/PathUtils.h"
#include "markup/CharClasses.h"
#include "markup/NoException.h"
#include "markup/TextScan.h"
#include "markup/OXParser.h"

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr DWORD kPause = 1000;  // ms

// Whether an element and what is below it have at most so many levels.
bool FitsLevels(const COXParserElement& element, int levels) {
  for (int i = 0; i < element.NumObjects(); ++i) {
    if (element.GetObject(i)->GetType() != COXParserObject::ELEMENT) continue;
    const COXParserElement* const child = element.GetElement(i);
    if (child != nullptr && (levels == 0 || !FitsLevels(*child, levels - 1))) return false;
  }
  return true;
}

int CreatePatiently(COXMarkupFile& file, const char* path) {
  if (file.Create(path)) return 1;
  if (GetLastError() != ERROR_SHARING_VIOLATION) return 0;
  Sleep(kPause);
  return file.Create(path);
}

// Takes the next word off a text; empty at the end.
std::string_view TakeWord(std::string_view& text) {
  size_t start = 0;
  while (start < text.size() && IsSpace(text[start])) ++start;
  size_t end = start;
  while (end < text.size() && !IsSpace(text[end])) ++end;
  const std::string_view word = text.substr(start, end - start);
  text.remove_prefix(end);
  return word;
}

}  // namespace

int COXParser::WriteFile(const char* path) {
  if (path == nullptr || *path == 0 || m_root.NumObjects() == 0) return 0;
  if (!FitsLevels(m_root, kMaxNesting)) return 0;
  return WithoutException([&] {
    EnsureFileFolder(path);
    COXMarkupFile file;
    if (!CreatePatiently(file, path)) return 0;
    m_allEncoded = true;
    for (int i = 0; i < m_root.NumObjects(); ++i) WriteObject(file, m_root.GetObject(i), 0);
    m_encodedText.Free();
    return m_allEncoded && file.Close() ? 1 : 0;
  });
}

int COXParser::WriteObject(COXMarkupFile& file, COXParserObject* object, int depth) {
  switch (object->GetType()) {
    case COXParserObject::CDATA:
      return WriteCData(file, object, depth);
    case COXParserObject::COMMENT:
      return WriteComment(file, object, depth);
    case COXParserObject::ELEMENT:
      return WriteElement(file, object, depth);
    case COXParserObject::MARKUP:
      return WriteMarkup(file, object, depth);
    case COXParserObject::PLAINTEXT:
      return WriteText(file, object, depth);
    case COXParserObject::PROCINSTR:
      return WriteProcessingInstruction(file, object, depth);
    default:
      return 0;
  }
}

int COXParser::WriteBracketed(COXMarkupFile& file, COXParserObject* object, int type, int depth,
                              Text open, Text close) {
  if (object->GetType() != type) return 0;
  file.WriteTimes(m_indentText, depth);
  file.Write(open);
  file.Write(object->GetText());
  file.Write(close);
  return file.Write(kLineEnd);
}

int COXParser::WriteCData(COXMarkupFile& file, COXParserObject* object, int depth) {
  return WriteBracketed(file, object, COXParserObject::CDATA, depth, "<![CDATA[", "]]>");
}

int COXParser::WriteComment(COXMarkupFile& file, COXParserObject* object, int depth) {
  return WriteBracketed(file, object, COXParserObject::COMMENT, depth, "<!--", "-->");
}

int COXParser::WriteMarkup(COXMarkupFile& file, COXParserObject* object, int depth) {
  return WriteBracketed(file, object, COXParserObject::MARKUP, depth, "<!", ">");
}

int COXParser::WriteProcessingInstruction(COXMarkupFile& file, COXParserObject* object, int depth) {
  return WriteBracketed(file, object, COXParserObject::PROCINSTR, depth, "<?", "?>");
}

int COXParser::WriteElement(COXMarkupFile& file, COXParserObject* object, int depth) {
  COXParserElement* const element = COXParserElement::AsElement(object);
  if (object->GetType() != COXParserObject::ELEMENT || element == nullptr) return 0;
  file.WriteTimes(m_indentText, depth);
  file.Write("<");
  file.Write(element->GetName());
  WriteAttributes(file, element);
  if (element->NumObjects() == 0) {
    file.Write("/>");
    return file.Write(kLineEnd);
  }
  file.Write(">");
  file.Write(kLineEnd);
  for (int i = 0; i < element->NumObjects(); ++i) {
    WriteObject(file, element->GetObject(i), depth + 1);
  }
  file.WriteTimes(m_indentText, depth);
  file.Write("</");
  file.Write(element->GetName());
  file.Write(">");
  return file.Write(kLineEnd);
}

int COXParser::WriteAttributes(COXMarkupFile& file, COXParserElement* element) {
  int written = 1;
  for (int i = 0; i < element->NumAttributes(); ++i) {
    const COXAttribute& attribute = *element->Attribute(i);
    file.Write(" ");
    file.Write(attribute.GetName());
    file.Write("=");
    if (attribute.IsInteger()) {
      written = file.Write(attribute.GetStringValue());
    } else {
      file.Write("\"");
      WriteValue(file, attribute.GetStringValue());
      written = file.Write("\"");
    }
  }
  return written;
}

// The apostrophe is left alone: values stand between double quotes.
void COXParser::WriteValue(COXMarkupFile& file, Text value) {
  const char* at = value.data();
  const char* const end = at + value.size();
  while (at != end) {
    const char* const stop = FindFirst<'"', '&', '<', '>'>(at, end);
    file.Write({at, static_cast<size_t>(stop - at)});
    at = stop;
    if (stop == end) break;
    switch (*at++) {
      case '"':
        file.Write("&quot;");
        break;
      case '&':
        file.Write("&amp;");
        break;
      case '<':
        file.Write("&lt;");
        break;
      default:
        file.Write("&gt;");
        break;
    }
  }
}

int COXParser::WriteText(COXMarkupFile& file, COXParserObject* object, int depth) {
  if (object->GetType() != COXParserObject::PLAINTEXT) return 0;
  const COXQuickString encoded = EncodeText(object->GetText());
  Text text(encoded.GetString(), encoded.GetLength());
  bool first = true;
  const auto write = [&](Text word) {
    size_t length = word.size();
    if (first && word.front() == '=') {
      // Read back as the first character of a text, it would be a token of its own.
      constexpr Text kReference = "&#61;";
      file.Write(kReference);
      word.remove_prefix(1);
      length = kReference.size() + word.size();
    }
    first = false;
    file.Write(word);
    return length;
  };

  const size_t width = m_lineWidth;
  Text word = TakeWord(text);
  while (!word.empty()) {
    file.WriteTimes(m_indentText, depth);
    size_t length = write(word);
    for (word = TakeWord(text); !word.empty() && length + 1 + word.size() <= width;
         word = TakeWord(text)) {
      file.Write(" ");
      length += 1 + write(word);
    }
    file.Write(kLineEnd);
  }
  return file.Write("");
}

COXQuickString COXParser::EncodeText(const char* text) {
  COXQuickString result;
  COXTextBuffer& encoded = m_encodedText;
  encoded.Clear();
  bool good = true;
  for (; good && text != nullptr && *text != 0; ++text) {
    const char* const entity = GetCharEntity(*text);
    good =
        entity[0] != 0 && entity[1] == 0 ? encoded.Append(*entity) : encoded.Append(Text(entity));
  }
  const Text whole = encoded.Text();
  good = good && result.SetString(whole.data(), static_cast<int>(whole.size()));
  // The caller sees an empty text; the file that it is missing from has failed.
  if (!good) m_allEncoded = false;
  return result;
}

const char* COXParser::GetCharEntity(char c) {
  static char text[8];
  const char* const name = COXEntityTable::NameOf(c);
  if (name == nullptr) {
    text[0] = c;
    text[1] = 0;
  } else {
    snprintf(text, sizeof text, "&%s;", name);
  }
  return text;
}
