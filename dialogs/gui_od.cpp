#include "dialogs/gui_od.h"

#include "host/text/case_mapping.h"
#include "host/ui/file_dialog.h"

#include <algorithm>

namespace {

std::vector<std::wstring> sorted(std::vector<std::wstring> names)
{
    std::ranges::stable_sort(names, {},
                             [](const std::wstring& name) { return host::lowerCased(name); });
    return names;
}

} // namespace

GUIOD::GUIOD(std::vector<std::wstring>& names)
    : names_(names), list_(add<host::ChoiceList>(sorted(names)))
{
}

void GUIOD::SelectAll()
{
    const std::size_t selected = list_.chosen.size();
    list_.chosen.clear();
    if (selected == list_.rows.size())
        return;
    for (std::size_t row = 0; row < list_.rows.size(); ++row)
        list_.chosen.push_back(row);
}

int GUIOD::DoModal()
{
    const int answer = ModalDialog::DoModal();
    if (answer != IDOK)
        return answer;
    for (std::size_t row = 0; row < list_.rows.size(); ++row) {
        if (std::ranges::binary_search(list_.chosen, row))
            continue;
        const auto unselected = std::ranges::find(names_, list_.rows[row]);
        if (unselected != names_.end())
            names_.erase(unselected);
    }
    return answer;
}
