#include "envvar_setup_layout.h"

namespace velmora {

namespace {

const FontSpec kFormFont{};
const FontSpec kBoldFont{"MS Sans Serif", 8, true};
const FontSpec kListFont{"Lucida Console", 9, false};

using K = ControlKind;
using C = BatchId;

// Sizes that follow the form's are given at the designed size; Form_Resize
// sets them from the form's size.
const std::vector<ControlDeclaration> kControls = {
    {C::OpenBatchButton,
     "OpenBatchButton",
     K::Button,
     C::Form,
     {60, 60, 1900, 360},
     "&Open Batch File",
     "Open another batch file",
     kFormFont},
    {C::SaveBatchButton,
     "SaveBatchButton",
     K::Button,
     C::Form,
     {2040, 60, 1900, 360},
     "&Save Batch File",
     "Save the batch file",
     kFormFont},
    {C::BatchFileLabel, "BatchFileLabel", K::Label, C::Form, {60, 480, 7520, 200}, "Batch: ", "", kFormFont},
    {C::BatchWindow,
     "BatchWindow",
     K::ListBox,
     C::Form,
     {60, 720, 7520, 3960},
     "",
     "Up and Down step to the SET lines; double click or Enter chooses one",
     kListFont},
    {C::BatchFrame, "BatchFrame", K::Frame, C::Form, {60, 4740, 7520, 1320}, "Environment Variable", "", kBoldFont},
    {C::EnvVarNameLabel,
     "EnvVarNameLabel",
     K::Label,
     C::BatchFrame,
     {120, 280, 7280, 240},
     "No Variable Selected",
     "",
     kFormFont},
    {C::EnvVarValue, "EnvVarValue", K::TextBox, C::BatchFrame, {120, 620, 5400, 300}, "", "", kFormFont},
    {C::UpdateEnvVarButton,
     "UpdateEnvVarButton",
     K::Button,
     C::BatchFrame,
     {5640, 580, 1760, 380},
     "&Update",
     "Write the new value into the line",
     kFormFont},
};

#define VELMORA_CONTROL_HELP(id, page, title, text) {BatchId::id, page, title, text},
constexpr ControlHelp kHelp[] = {
#include "batch_help_table.inc"
};
#undef VELMORA_CONTROL_HELP

const FormDeclaration kForm{C::Form,
                            "Assign Environment Variables in Batch File",
                            {0, 0, kDesignedBatchFormWidth, kDesignedBatchFormHeight},
                            kControls,
                            kHelp,
                            "batch-editor"};

}  // namespace

const FormDeclaration& Batch_Form() { return kForm; }

}  // namespace velmora
