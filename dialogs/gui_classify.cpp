#include "dialogs/gui_classify.h"

#include "host/ui/file_dialog.h"

GUIClassify::GUIClassify(ClassifyParameters& parameters)
    : parameters_(parameters),
      assign_(add<host::CheckBox>(L"Assign graphical properties", parameters.assign)),
      attach_(add<host::CheckBox>(L"Attach OD", parameters.attach)),
      change_(add<host::CheckBox>(L"Change object", parameters.change)),
      defineField_(L"Define field OD", parameters.defineField)
{
    change_.enabled = attach_.checked;
    defineField_.enabled = attach_.checked;
    attach_.changed = [this] { change_.enabled = attach_.checked; };
}

int GUIClassify::DoModal()
{
    const int answer = ModalDialog::DoModal();
    if (answer == IDOK)
        parameters_ = {assign_.checked, attach_.checked, attach_.checked && change_.checked,
                       defineField_.checked};
    return answer;
}
