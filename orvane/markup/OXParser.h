// Reads XML-like markup into a tree, and writes a tree as markup.
#pragma once

#include <memory>
#include <string_view>

#include "markup/OXElement.h"
#include "markup/OXEntityTable.h"
#include "markup/OXMarkupFile.h"
#include "markup/OXNodePool.h"
#include "markup/OXTextBuffer.h"
#include "markup/OXToken.h"

struct COXAttributeGroup;

// What is wrong with a document: one of COXParser's codes, its message, and the place (lines count
// from 1; a column is the number of characters read since the line began, plus one in the first
// line). The result is not used.
using COXParserErrorFunction = int (*)(int code, const char* message, int line, int column,
                                       unsigned long userData);

// A forgiving parser, not a validating one. Beyond XML it takes integers without quotes as
// attribute values and end tags in any case; names hold letters, digits, ":", "_" and "-". The
// bytes of texts are kept as they are, whatever their encoding.
//
// A derived class changes what is accepted through the virtual operations: an HTML-like document,
// say, by closing elements whose end tag is left out.
//
// One thread at a time uses a parser, and no two parsers encode or write at the same time: they
// share buffers. No exception leaves it; one from the error function ends the parse.
class ORVANE_API COXParser {
 public:
  enum ErrorCode {
    kNullBuffer = 101,
    kEndOfBuffer,
    kOutOfMemory,
    kNoToken,
    kIllegalCharacter,
    kUnexpectedToken,
    kMissingEndTag,
    kBadEntity,   // the parse goes on: the reference is kept as it stands
    kBadInteger,  // for derived classes
    kMissingBracket,
    kUnexpectedEndTag = 201  // the parse goes on
  };

  // How far ParseFileEx came.
  enum ParseError {
    kFileMissing,    // the file does not exist, but its folder does
    kFolderMissing,  // neither exists
    kFileNotOpened,
    kSizeUnknown,
    kNoMemory,     // none for the file's contents
    kFileNotRead,  // nor a copy of it
    kPrefixMissing,
    kParseFailed,  // or the file is empty
    kParsed,       // success
    kLooking,      // checking that the file exists
    kLoading,
    kLoadingAgain,  // after a pause
    kLoaded,
    kParsing,
    kParseReturned
  };

  // The most levels of elements in a document, so that parsing and writing it fit a stack of 1 MB.
  // Parsing a deeper one fails with kOutOfMemory, and a deeper tree is not written.
  static const int kMaxNesting = 4096;

  // What the entity references of a document may grow to: so many bytes for every byte of it, and
  // kFreeExpansion. A document that grows further fails with kOutOfMemory.
  static const unsigned kMaxExpansion = 8;
  static const unsigned kFreeExpansion = 1024 * 1024;

  COXParser();
  COXParser(const COXParser&) = delete;
  COXParser& operator=(const COXParser&) = delete;
  virtual ~COXParser();

  // Deletes the tree and forgets declared entities.
  virtual void Clear();

  // The text for an error code.
  virtual const char* TranslateErrorCode(int code);

  // The element "[Root]", whose children are the top-level objects of the document. The tree
  // belongs to the parser until the next parse or Clear, and may be changed.
  COXParserElement& Root() { return m_root; }
  bool IsEmpty() const { return m_root.NumObjects() == 0 && m_root.NumAttributes() == 0; }

  // Errors go to function; null: to DefErrorHandler.
  void SetErrorRptFunction(COXParserErrorFunction function, unsigned long userData);

  // Kept for callers; the parser itself never asks.
  int CaseSensitive() const { return m_caseSensitive; }
  void SetCaseSensitive(int caseSensitive) { m_caseSensitive = caseSensitive; }

  // Parses a zero-terminated text, with or without a UTF-8 byte-order mark: non-zero, or 0 for null
  // and for a document that fails, with the error reported once. What was complete until then is in
  // the tree. The text is not used after that.
  int Parse(const char* text);

  // The same with the contents of a file, up to its first zero byte; 0 when it can't be loaded.
  int ParseFile(const char* path);

  // The same, patient with files that are in use: a failed load is repeated after 1,000 ms, and
  // what can't be read is read from a copy. With requirePrefix the text must begin with "<xml" in
  // any case.
  int ParseFileEx(const char* path);
  int ParseFileEx(const char* path, int requirePrefix, ParseError& status);

  // Whether trying again is useless.
  static int IsPermanentError(ParseError status);

  // Writes the children of the root, replacing any old file and creating missing folders; when the
  // file is in use, a second time after 1,000 ms. No header is added. 0: the root has no children
  // or is nested too deep, or the file could not be created or written whole; an old one stays.
  int WriteFile(const char* path);

 protected:
  // Before and after each parse. Initialize sets the place to the start of the text and names the
  // root: 1, or 0 to fail the parse. Cleanup does nothing here; its result is not used.
  virtual int Initialize();
  virtual int Cleanup();

  // Each reads what its opening bracket announced and returns a new object, or null to fail the
  // parse, when it has reported why. parent is the element that will hold it.
  virtual COXParserObject* ParseProcessingInstruction(COXParserElement* parent);
  virtual COXParserObject* ParseMarkup(COXParserElement* parent);
  virtual COXParserObject* ParseComment(COXParserElement* parent);
  // Reads up to the next "<".
  virtual COXParserObject* ParseText(COXParserElement* parent);
  // Reads from behind "<" to ">" (empty becomes 0) or "/>" (1).
  virtual COXParserElement* ParseStartTag(COXParserElement* parent, int& empty);

  // Whether an open element is closed by the start tag or, with isEndTag, the end tag named tag;
  // or, when tag is null, by the end of the text.
  virtual int IsEndTagMissing(const char* element, const char* tag, int isEndTag);
  // Whether a start tag is passed over, with its attributes but not with what follows; or an end
  // tag.
  virtual int IgnoreStartTag(COXParserElement* element, int empty);
  virtual int IgnoreEndTag(const char* name);

  // Appends a non-null object to the element: 1. 0: the object stays the caller's, and the parse
  // fails.
  virtual int AddObjectToElement(COXParserElement* element, COXParserObject* object);

  // Reads attributes up to the first token that begins none, which stays in m_token.
  virtual int ParseAttributes(COXParserElement* element);
  // Reads the content of an element and its end tag; depth is 0 for the root.
  virtual int ParseElement(COXParserElement* element, int depth);
  // Reads from behind "</" to ">".
  virtual int ParseEndTag(COXParserElement* element, COXQuickString& name);

  // The value of an entity; of a character reference ("#65", "#x41") its low byte, in a buffer that
  // the next call overwrites. Null: there is none. What a text gets of the value ends at its first
  // blank or ">"; a value that is ">" alone is used whole.
  virtual const char* GetLiteralString(const char* name);
  // A character as an entity, or as itself, in a buffer that the next call overwrites.
  virtual const char* GetCharEntity(char c);
  // text with GetCharEntity of every character.
  virtual COXQuickString EncodeText(const char* text);

  // Each writes an object of its type with the indent for depth, and returns 1, or 0 when the
  // object has another type or can't be written.
  virtual int WriteAttributes(COXMarkupFile& file, COXParserElement* element);
  virtual int WriteCData(COXMarkupFile& file, COXParserObject* object, int depth);
  virtual int WriteComment(COXMarkupFile& file, COXParserObject* object, int depth);
  virtual int WriteElement(COXMarkupFile& file, COXParserObject* object, int depth);
  virtual int WriteMarkup(COXMarkupFile& file, COXParserObject* object, int depth);
  virtual int WriteProcessingInstruction(COXMarkupFile& file, COXParserObject* object, int depth);
  virtual int WriteText(COXMarkupFile& file, COXParserObject* object, int depth);
  // Calls the one that the object's type asks for; 0 for any other type.
  virtual int WriteObject(COXMarkupFile& file, COXParserObject* object, int depth);

  // Gets the errors when no function is set. The result is not used.
  virtual int DefErrorHandler(int code, const char* message, int line, int column,
                              unsigned long userData);

  // Reading characters. A carriage return before a line feed is read with it as one line feed when
  // joinLineEnds is set. GetNextChar returns the last of count characters, or 0 at the end of the
  // text, which it reports when reportEnd is set. UngetChar goes back count bytes, not before the
  // start. The place for messages follows the position.
  char GetNextChar(int count = 1, int reportEnd = TRUE, int joinLineEnds = TRUE);
  void UngetChar(int count = 1);
  const char* SaveBufferPos() const { return m_position; }
  void RestoreBufferPos(const char* position) { m_position = position; }
  // Skips white space; 0 at the end of the text.
  int RemoveWhiteSpace();

  // Reading tokens: 1, or 0 at the end of the text. The readers report what is wrong and return 0.
  int GetToken(COXToken& token, int reportEnd);
  int GetNameToken(COXQuickString& name);
  // Clamped to the range of int; no digits at all give 0.
  int GetNumberToken(int& number);
  // Reads up to the quote. With decode the entities of the five characters of markup are replaced.
  int GetStringToken(COXQuickString& text, char quote, int decode);

  // Formats a message, cut to 511 characters, and hands it on with the present line and column.
  [[gnu::format(gnu_printf, 3, 4)]] void ReportError(int code, const char* format, ...);

  // What the tokenizer looks for and the writer writes.
  enum Delimiter : char {
    kTagOpen = '<',
    kTagClose = '>',
    kSlash = '/',
    kExclamation = '!',
    kQuestion = '?',
    kDash = '-',
    kCarriageReturn = '\r',
    kLineFeed = '\n',
    kEndOfText = 0,
    kAmpersand = '&'
  };

  const char* m_indentText = "   ";  // once for each level
  int m_lineWidth = 80;              // where written text is wrapped
  // Whether a wrong end tag fails the parse; else it is reported and passed over.
  int m_strictEndTags = TRUE;
  COXParserElement m_root;
  COXToken m_token;
  const char* m_text = nullptr;  // while parsing
  const char* m_position = nullptr;

 private:
  using Text = std::string_view;

  Text Rest() const { return {m_position, static_cast<size_t>(m_end - m_position)}; }
  bool ParseInside(const char* text);
  void SetToStart();

  enum class Opened { kFailed, kNothing, kClosesParent, kEmpty, kWithContent };
  Opened OpenChild(COXParserElement* element, int depth, const char* start,
                   std::unique_ptr<COXParserElement>& child);
  bool AddChild(COXParserElement* element, COXParserObject* child);
  bool ParseClosing(COXParserElement* element, int depth, const char* start, bool& closed);
  bool ParseContent(COXParserElement* element);
  int ParseAttributeList(COXParserElement* element);
  COXAttribute* ParseAttribute(COXParserElement* element);
  bool AddAttributes(COXParserElement* element, COXAttributeGroup& group);

  bool NextToken();
  bool ReadName(Text& name);
  bool ReportBadName();
  bool ReadNumber(int& number);
  bool ReadString(char quote, bool decode, Text& text);
  bool ReadStringInPieces(char quote, bool decode, Text& text);
  bool ReadUntil(Text closing, const char* error, Text& text);

  bool ReportNoObject();
  COXParserObject* NewObject(COXParserElement* parent, int type, Text text);
  COXParserObject* NewJoined(COXParserElement* parent, int type, Text text);
  COXParserObject* ParsePieces(COXParserElement* parent, const char* stop);
  bool AppendPiece(Text text);
  bool ParseEntity();
  COXParserObject* ParseDocType(COXParserElement* parent);
  COXParserObject* ParseCData(COXParserElement* parent);
  bool ParseSubset();
  bool DeclareEntity(Text declaration);

  int WriteBracketed(COXMarkupFile& file, COXParserObject* object, int type, int depth, Text open,
                     Text close);
  void WriteValue(COXMarkupFile& file, Text value);

  std::unique_ptr<char[]> LoadFile(const char* path);

  // The place of a position in the text, found by counting on from the last one asked for.
  struct Place {
    const char* position;
    const char* lineStart;
    int line;
  };
  Place PlaceOf(const char* position);

  COXEntityTable m_entities;
  int m_caseSensitive = TRUE;
  COXParserErrorFunction m_errorFunction = nullptr;
  unsigned long m_errorUserData = 0;

  const char* m_end = nullptr;
  Place m_lastPlace = {nullptr, nullptr, 1};
  unsigned long long m_expanded = 0;  // bytes that entity references have become
  COXNodePool m_pool;
  COXTextBuffer m_pieces;  // a text that is not a part of the input
  COXTextBuffer m_entityName;
  COXQuickString m_endTagName;
  COXTextBuffer m_encodedText;
  bool m_allEncoded = true;  // every text of the file that is being written
};
