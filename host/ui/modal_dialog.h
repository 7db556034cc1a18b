#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace host {

// A modal dialog as a model: controls with their state in tab order, no pixels. A display mirrors
// it; without one its controls are answered on the command line.

// One control. `changed` is called after the user changed it, so that it can enable others.
class Control {
public:
    virtual ~Control() = default;
    bool enabled = true;
    std::function<void()> changed;

    // Asks on the command line; false when the user cancelled.
    virtual bool ask() = 0;
};

// "TEXT [0/1]<1>: ", the present state being the answer of Enter alone.
class CheckBox : public Control {
public:
    CheckBox(std::wstring textOf, bool checkedFirst)
        : text(std::move(textOf)), checked(checkedFirst)
    {
    }
    std::wstring text;
    bool checked;

    bool ask() override;
};

// A list of which several rows can be chosen: prints them with numbers from 1, then asks
// "Select [numbers/All]<none>: ". Numbers stand apart by commas; "2-5" is a run.
class ChoiceList : public Control {
public:
    explicit ChoiceList(std::vector<std::wstring> rowsOf) : rows(std::move(rowsOf)) {}
    std::vector<std::wstring> rows;
    std::vector<std::size_t> chosen; // places in `rows`, ascending

    bool ask() override;
};

// Text to be read; nothing is asked.
class TextPane : public Control {
public:
    explicit TextPane(std::wstring textOf) : text(std::move(textOf)) {}
    std::wstring text;

    bool ask() override;
};

class ModalDialog {
public:
    virtual ~ModalDialog() = default;

    // IDOK, or IDCANCEL when a question was cancelled; what was answered until then stays in the
    // controls.
    int DoModal();

protected:
    template <class T, class... Arguments> T& add(Arguments&&... arguments)
    {
        auto control = std::make_unique<T>(std::forward<Arguments>(arguments)...);
        T& added = *control;
        controls_.push_back(std::move(control));
        return added;
    }

private:
    std::vector<std::unique_ptr<Control>> controls_;
};

// The rows that "1,3-5" or "All" names among `count`, as places from 0; nothing when it is neither.
std::optional<std::vector<std::size_t>> chosenRows(std::wstring_view text, std::size_t count);

} // namespace host
