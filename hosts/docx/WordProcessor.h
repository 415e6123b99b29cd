#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "hosts/docx/package/Package.h"
#include "platform/word/Application.h"

namespace docx {

class OpenDocument;
struct WordProcessorState;

/// What page numbers rest on.
enum class PageSource {
  kAuto,    ///< the best at hand
  kFile,    ///< the breaks in the file, and an estimate
  kLayout,  ///< the layout engine alone
  kPdf,     ///< of a PdfMaker
};

/// Has another word processor lay documents out.
class PdfMaker {
 public:
  virtual ~PdfMaker() = default;
  /// @return a PDF of the document, in which each of its bookmarks is a named destination
  /// @throws word::HostError when there is none to be had
  virtual std::string MakePdf(const Package& document) = 0;
  /// Whose layout it is, for reports.
  virtual std::string Name() const = 0;
};

/// What a document's window shows, and where its cursor stands.
struct WindowState {
  int viewType{3};
  int splitSpecial{0};
  bool showHiddenText{false};
  bool showAll{false};
  int splitVertical{0};
};

/// The application's options, which outlive documents.
struct OptionsState {
  bool autoFormatAsYouTypeReplaceQuotes{true};
  bool allowFastSave{false};
  bool checkSpellingAsYouType{true};
  bool checkGrammarAsYouType{true};
  bool pagination{true};
  std::u16string startupPath{u"C:\\Startup"};
};

struct SelectionState {
  int story{1};
  word::Position start{0};
  word::Position end{0};
};

/// Where a document's own saving goes. What it throws reaches the system as a HostError.
class DocumentFile {
 public:
  virtual ~DocumentFile() = default;
  /// Packs the document as it is now, which costs as much as the document is long.
  using Current = std::function<const Package&()>;
  /// Document.Save.
  virtual void Save(const Current& current) = 0;
  /// Document.SaveAs. @param fileName as the system gave it
  virtual void SaveAs(std::u16string_view fileName, const Package& package) = 0;
};

/// How a document is opened.
struct DocumentSettings {
  std::u16string name;  ///< Document.Name
  std::u16string path;  ///< Document.Path; empty for a document that was never saved
  PageSource pages{PageSource::kFile};
  PdfMaker* pdfMaker{nullptr};  ///< for kPdf; outlives the document
  bool drawn{false};            ///< its pages will be drawn
  bool readOnly{false};  ///< nothing is kept of it, so that its protection against changes has nothing to protect
};

/// A word processor in memory over one document: the object model's root, and what its owner needs beside it.
class WordProcessor {
 public:
  WordProcessor();
  ~WordProcessor();
  WordProcessor(const WordProcessor&) = delete;
  WordProcessor& operator=(const WordProcessor&) = delete;

  /// The object model.
  word::ApplicationPtr Application() const;
  /// The menus that it then has; those of a host with windows, or of one that only keeps them.
  void SetCommandBars(office::CommandBarsPtr commandBars);

  /// Opens a document and makes it the active one; one that was open is closed.
  /// @param file outlives the document
  /// @throws PackageError when its parts cannot be read
  void Open(std::unique_ptr<Package> package, DocumentSettings settings, DocumentFile& file);
  /// nullptr when none is open.
  OpenDocument* Document() const;
  void Close();

  /// The document as it is now: a package whose changed parts are up to date. @pre a document is open
  const Package& Updated() const;
  /// @return false when a story or position does not exist. @pre a document is open
  bool Select(const SelectionState& selection);
  SelectionState Selection() const;
  WindowState& Window() const;
  OptionsState& Options() const;

  /// The pages of the document as it stands; see Paginator. @pre a document is open
  int PageCount() const;
  /// @param story a WdStoryType
  int PageOf(int story, word::Position position) const;
  std::u16string PageLabel(int page) const;
  std::string PagesFrom() const;

 private:
  std::shared_ptr<WordProcessorState> state_;
};

}  // namespace docx
