#include "host/db/mtext_contents.h"

namespace host {

namespace {

constexpr wchar_t kNoBreakSpace = 0xA0;

class Reader {
public:
    explicit Reader(std::wstring_view source) : source_(source) {}

    std::wstring read()
    {
        while (at_ < source_.size()) {
            const wchar_t c = source_[at_++];
            if (c == L'\\' && at_ < source_.size())
                code(source_[at_++]);
            else if (c == L'%' && rest().starts_with(L'%'))
                sign();
            else if (c != L'{' && c != L'}')
                plain_ += c;
        }
        return std::move(plain_);
    }

private:
    std::wstring_view rest() const { return source_.substr(at_); }

    void code(wchar_t c)
    {
        static constexpr std::wstring_view kWithParameters = L"AaCcFfHQTWp";
        static constexpr std::wstring_view kSwitches = L"LlOoKk";
        if (c == L'P' || c == L'N')
            plain_ += L'\n';
        else if (c == L'~')
            plain_ += kNoBreakSpace;
        else if (c == L'\\' || c == L'{' || c == L'}')
            plain_ += c;
        else if (c == L'S')
            stack();
        else if (kWithParameters.find(c) != std::wstring_view::npos)
            skipParameters();
        else if (kSwitches.find(c) == std::wstring_view::npos)
            (plain_ += L'\\') += c; // no code: shown as it stands
    }

    void skipParameters()
    {
        const std::size_t end = source_.find(L';', at_);
        if (end != std::wstring_view::npos)
            at_ = end + 1;
    }

    // Upper and lower part of a fraction or tolerance, parted by "/", "#" or "^".
    void stack()
    {
        while (at_ < source_.size() && source_[at_] != L';') {
            const wchar_t c = source_[at_++];
            if (c == L'\\' && at_ < source_.size())
                plain_ += source_[at_++];
            else if (c == L'#')
                plain_ += L'/';
            else if (c == L'^')
                plain_ += L' ';
            else
                plain_ += c;
        }
        ++at_;
    }

    void sign()
    {
        if (at_ + 1 >= source_.size()) {
            plain_ += L'%';
            return;
        }
        const wchar_t c = source_[at_ + 1];
        static constexpr struct {
            wchar_t letter;
            wchar_t sign;
        } kSigns[] = {{L'd', 0xB0},   {L'D', 0xB0}, {L'c', 0x2205},
                      {L'C', 0x2205}, {L'p', 0xB1}, {L'P', 0xB1}};
        for (const auto& row : kSigns)
            if (row.letter == c) {
                plain_ += row.sign;
                at_ += 2;
                return;
            }
        std::size_t digits = 0;
        int number = 0;
        while (digits < 3 && at_ + 1 + digits < source_.size()) {
            const wchar_t d = source_[at_ + 1 + digits];
            if (d < L'0' || d > L'9')
                break;
            number = number * 10 + (d - L'0');
            ++digits;
        }
        if (digits == 3 && number >= 32) {
            plain_ += static_cast<wchar_t>(number);
            at_ += 4;
        } else {
            plain_ += L'%';
        }
    }

    std::wstring_view source_;
    std::size_t at_ = 0;
    std::wstring plain_;
};

} // namespace

std::wstring plainText(std::wstring_view contents)
{
    return Reader(contents).read();
}

} // namespace host
