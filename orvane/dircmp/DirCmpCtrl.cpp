// Filling the list.
#include "dircmp/DirCmpCtrl.h"

#include <algorithm>

#include "diag/trace.h"
#include "dircmp/FolderScan.h"
#include "dircmp/HyperLinkReport.h"
#include "markup/NoException.h"
#include "resources/resource.h"
#include "settings/MString.h"

namespace {

constexpr char kColourSetting[] = "useColourMarking";

constexpr COLORREF kBlack = RGB(0, 0, 0), kWhite = RGB(255, 255, 255);
// In the order of the states.
constexpr COLORREF kStateColours[kFileStates] = {kBlack, RGB(0, 180, 0), RGB(0, 0, 255),
                                                 RGB(255, 0, 0), RGB(128, 128, 128)};

// A number stands in the place of the pointer to a text.
const char* asValue(long number) { return reinterpret_cast<const char*>(number); }
// A time that a list can't show is none.
const char* asValue(const CTime& time) {
  return asValue(std::max(0l, static_cast<long>(time.GetTime())));
}

}  // namespace

// Finds out the states of all documents that are compared.
class DirCmpCtrl::Evaluation : public MMultiOperation {
 public:
  explicit Evaluation(DirCmpCtrl& list)
      : MMultiOperation(0, static_cast<unsigned>(list.m_comparison->records().size())),
        m_list(list),
        m_comparison(*list.m_comparison) {
    SetMessage(MString::Loaded(IDS_EVALUATING_FILE_STATUS));
    SetDisplayProgressOnSingle(1);  // one pair may be as long as a thousand others
  }

 protected:
  OperationReturnState Operation(unsigned int index) override {
    DocumentRecord& record = m_comparison.records()[index];
    if (m_comparison.IsCompared(record)) m_comparison.Evaluate(record);
    if (m_comparison.IsStopped()) return OperationFailedStop;
    m_list.Progress(index + 1, m_end);
    return OperationDone;
  }
  void StopLoopOperation() override { m_comparison.Stop(); }

 private:
  DirCmpCtrl& m_list;
  FolderComparison& m_comparison;
};

DirCmpCtrl::DirCmpCtrl() = default;

// The window asks for colours as long as it is there.
DirCmpCtrl::~DirCmpCtrl() { DestroyWindow(); }

int DirCmpCtrl::InitList(const char* baseFolder, const char* revisedFolder, const DirCmpPrm& prm,
                         const char* baseDisplayName, const char* revisedDisplayName) {
  ASSERT(m_comparison == nullptr);
  if (m_comparison != nullptr) return 0;
  return WithoutException([&] {
    const auto nameOr = [](const char* name, const char* folder) {
      return name != nullptr && *name != 0 ? name : folder;
    };
    if (MRegistry::HasProductRegistry())
      MRegistry::GetProductRegistry().GetUserKey(kColourSetting, m_usesColours, m_usesColours);
    m_comparison = std::make_unique<FolderComparison>(baseFolder, revisedFolder, prm);
    m_baseName = nameOr(baseDisplayName, baseFolder);
    m_revisedName = nameOr(revisedDisplayName, revisedFolder);
    MString title;
    title.FormatMessage(IDS_COMPARISON_TITLE, m_baseName, m_revisedName);
    SetListTitle(title);
    AddColumns();
    Scan();
    Evaluate();
    Fill();
    if (GetRegistry() != nullptr) m_reportPages.Load(*GetRegistry());
    SetInitialSortKey(kStatus);
    SelectItem(0);
    AttachCallbacks();
    return m_comparison->IsStopped() || !m_comparison->problems().empty() ? 0 : 1;
  });
}

void DirCmpCtrl::AddColumns() {
  SetEnabledColumns(~(1ul << kBaseModified | 1ul << kRevisedModified));
  AddColumn(MString::Loaded(IDS_COLUMN_DOCUMENT_NAME), &CompareStrNocase);
  AddColumn(MString::Loaded(IDS_COLUMN_TYPE), &CompareStrNocase);
  AddColumn(MString::Loaded(IDS_COLUMN_FOLDER_NAME), &CompareStrNocase);
  AddTimeColumn(MString::Loaded(IDS_COLUMN_BASE_MODIFIED), 1);
  AddTimeColumn(MString::Loaded(IDS_COLUMN_REVISED_MODIFIED), 1);
  AddEnumColumn(MString::Loaded(IDS_COLUMN_STATUS), kFileStates, MString::Loaded(IDS_FILE_STATES),
                1);
  AddTimeColumn(MString::Loaded(IDS_COLUMN_MODIFIED), 1);

  SetAltSortKey(kDocumentName, kType, kFolderName);
  SetAltSortKey(kType, kDocumentName, kFolderName);
  SetAltSortKey(kFolderName, kType, kDocumentName);
  SetAltSortKey(kBaseModified, kStatus, kDocumentName);
  SetAltSortKey(kRevisedModified, kStatus, kDocumentName);
  SetAltSortKey(kStatus, kModified, kDocumentName);
  SetAltSortKey(kModified, kStatus, kDocumentName);
}

void DirCmpCtrl::Scan() {
  for (const auto side : {FolderScan::Side::Base, FolderScan::Side::Revised}) {
    FolderScan scan(*m_comparison, side);
    scan.SetNoGui(m_comparison->prm().m_noGui);
    if (!m_comparison->IsStopped() && !RunOperation(scan)) m_comparison->Stop();
  }
}

void DirCmpCtrl::Evaluate() {
  Evaluation evaluation(*this);
  evaluation.SetNoGui(m_comparison->prm().m_noGui);
  if (!m_comparison->IsStopped() && !RunOperation(evaluation)) m_comparison->Stop();
  if (m_comparison->IsStopped()) m_comparison->LeaveRestUnknown();
}

void DirCmpCtrl::Fill() {
  for (const DocumentRecord& record : m_comparison->records()) {
    if (!m_comparison->IsCompared(record)) continue;
    if (AddDocument(record) != kAutomaticId) ++m_counts[static_cast<int>(record.state)];
  }
}

unsigned long DirCmpCtrl::AddDocument(const DocumentRecord& record) {
  const DocumentName name(record.relativePath);
  const char* const values[kColumns] = {name.name,
                                        name.extension,
                                        name.folder,
                                        asValue(record.baseModified),
                                        asValue(record.revisedModified),
                                        asValue(static_cast<long>(record.state)),
                                        asValue(record.modified)};
  return AddItem(reinterpret_cast<unsigned long>(&record), values);
}

void DirCmpCtrl::AttachCallbacks() {
  using Self = DirCmpCtrl*;
  OnContextMenu([](void* list, int row, unsigned long id,
                   MPopupMenu& menu) { Self(list)->DoContextMenu(row, id, menu); },
                this);
  OnUserCommand([](void* list, int command) { Self(list)->ExecuteCommand(command); }, this);
  OnDblClk([](void* list, unsigned long id) { Self(list)->OpenCommand(id); }, this);
  OnHlReport(
      {.configure = [](void* list, CWnd* owner) { return Self(list)->ConfigureReports(owner); },
       .generate = [](void* list, const HlReportRun& run,
                      CString& note) { return Self(list)->GenerateHlReport(run, note); },
       .cellLink = [](void* list, unsigned long id,
                      int column) { return Self(list)->GenerateSourceFileLinks(id, column); }},
      this);
}

// The list finds an item by its identifier in constant time.
bool DirCmpCtrl::IsDocument(unsigned long id) const { return GetItemIdEnum(id, kStatus) >= 0; }

const DocumentRecord& DirCmpCtrl::RecordOf(unsigned long id) {
  return *reinterpret_cast<const DocumentRecord*>(id);
}

int DirCmpCtrl::CountOf(FileState state) const { return m_counts[static_cast<int>(state)]; }

int DirCmpCtrl::RunOperation(MMultiOperation& operation) { return operation.DoOperation(0); }

void DirCmpCtrl::Progress(unsigned, unsigned) {}

void DirCmpCtrl::GetItemColors(unsigned long id, COLORREF& text, COLORREF& background) {
  const bool hasColour = m_usesColours != 0 && IsDocument(id);
  text = hasColour ? kStateColours[static_cast<int>(RecordOf(id).state)] : kBlack;
  background = kWhite;
}
