// PLACEHOLDER: replaced by the lifecycle work.
#include "editor_form.h"
#include "engine.h"
namespace velmora {
EditorForm::EditorForm(Engine& engine, FormControls& controls, FormWindow& window, FileDialogs& dialogs,
                       CRegSettings& settings)
    : engine_(engine), controls_(controls), window_(window), dialogs_(dialogs), settings_(settings),
      traceExtent_(engine.TraceWindow, [](const std::string&) { return 0L; }) {}
void EditorForm::Form_Load_Interactive() {}
void EditorForm::Form_Resize() {}
void EditorForm::Form_QueryUnload() {}
void EditorForm::Set_Trace_HScroll_Bar() {}
}  // namespace velmora
