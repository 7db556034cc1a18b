#include "host/ui/modal_dialog.h"

#include "host/edit/command_engine.h"
#include "host/edit/typed_values.h"
#include "host/text/case_mapping.h"
#include "host/ui/file_dialog.h"

#include <set>

namespace host {

namespace {

// `take` answers false for what the control does not understand.
bool askControl(const std::wstring& prompt, const std::wstring& refusal,
                const std::function<bool(const std::wstring&)>& take)
{
    Question question;
    question.kind = WaitKind::dialog;
    question.prompt = prompt;
    return engine().ask(question, [&](const Answer& answer) -> std::optional<std::wstring> {
        if (answer.text.empty() || take(answer.text))
            return std::nullopt;
        return refusal;
    }) == RTNORM;
}

std::wstring numbersOf(const std::vector<std::size_t>& rows)
{
    std::wstring numbers;
    for (const std::size_t row : rows)
        numbers += (numbers.empty() ? L"" : L",") + std::to_wstring(row + 1);
    return numbers.empty() ? L"none" : numbers;
}

} // namespace

std::optional<std::vector<std::size_t>> chosenRows(std::wstring_view text, std::size_t count)
{
    std::set<std::size_t> rows;
    if (equalNoCase(text, L"All") || equalNoCase(text, L"A")) {
        for (std::size_t row = 0; row < count; ++row)
            rows.insert(row);
        return std::vector(rows.begin(), rows.end());
    }
    for (std::size_t begin = 0, end = 0; end != text.npos && !text.empty(); begin = end + 1) {
        end = text.find(L',', begin);
        const std::wstring_view run = text.substr(begin, end - begin);
        const std::size_t dash = run.find(L'-');
        const std::optional<int> first = typedInteger(run.substr(0, dash));
        const std::optional<int> last =
            dash == std::wstring_view::npos ? first : typedInteger(run.substr(dash + 1));
        if (!first || !last || *first < 1 || *first > *last ||
            static_cast<std::size_t>(*last) > count)
            return std::nullopt;
        for (int number = *first; number <= *last; ++number)
            rows.insert(static_cast<std::size_t>(number - 1));
    }
    return std::vector(rows.begin(), rows.end());
}

bool CheckBox::ask()
{
    return askControl(text + L" [0/1]<" + (checked ? L"1" : L"0") + L">: ", L"Requires 0 or 1.\n",
                      [&](const std::wstring& answer) {
                          if (answer != L"0" && answer != L"1")
                              return false;
                          checked = answer == L"1";
                          return true;
                      });
}

bool ChoiceList::ask()
{
    for (std::size_t row = 0; row < rows.size(); ++row)
        engine().print(std::to_wstring(row + 1) + L' ' + rows[row] + L'\n');
    return askControl(L"Select [numbers/All]<" + numbersOf(chosen) + L">: ",
                      L"Requires numbers of rows, apart by commas.\n",
                      [&](const std::wstring& answer) {
                          const auto picked = chosenRows(answer, rows.size());
                          chosen = picked.value_or(chosen);
                          return picked.has_value();
                      });
}

bool TextPane::ask()
{
    engine().print(text);
    engine().transcript().freshLine();
    return true;
}

int ModalDialog::DoModal()
{
    if (!engineExists())
        return IDCANCEL;
    for (const std::unique_ptr<Control>& control : controls_) {
        if (!control->enabled)
            continue;
        if (!control->ask())
            return IDCANCEL;
        if (control->changed)
            control->changed();
    }
    return IDOK;
}

} // namespace host
