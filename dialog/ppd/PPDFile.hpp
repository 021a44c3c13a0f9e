// PPDFile.hpp - an open PPD, looked at before it is opened.
//
// Owns the libcups record.  The defaults are marked on opening.
#pragma once

#include "dialog/Messages.hpp"
#include "dialog/ppd/KeptText.hpp"

#include <cups/ppd.h>

#include <string>
#include <string_view>
#include <vector>

namespace dialog {

class PPDFile
{
  public:
    PPDFile() noexcept = default; // no PPD
    ~PPDFile();
    PPDFile(PPDFile&& other) noexcept;
    PPDFile& operator=(PPDFile&& other) noexcept;
    PPDFile(const PPDFile&) = delete;
    PPDFile& operator=(const PPDFile&) = delete;

    // `name` is what a message calls the file.  On failure the result holds no PPD and `failure`
    // says why.
    static PPDFile fromBytes(std::string_view name, std::string_view bytes, Failure& failure);
    static PPDFile fromPath(const std::string& path, Failure& failure);

    // The same PPD as it was before anything was marked or set; none when there is none, or when
    // its text cannot be had any more.
    PPDFile reopened() const;

    // nullptr when there is no PPD.
    ppd_file_t* record() const noexcept { return record_; }

    // Marks a choice that the PPD lists; false, and nothing marked, for any other.  For an option
    // that takes several: exactly these, with commas between them, or None.
    bool mark(const std::string& keyword, const std::string& choice);
    // The marked choice; empty when there is none.
    std::string marked(const std::string& keyword) const;
    // All of them, for options that take several.
    std::vector<std::string> markedChoices(const std::string& keyword) const;

    // Makes `choice` the option's default in this record alone; false without such an option or
    // when the record has no room for the text.
    bool setDefault(const std::string& keyword, std::string_view choice);

    struct Size
    {
        std::string name;
        std::string title;
    };
    // The page sizes that PageSize offers, in the PPD's order.
    std::vector<Size> sizes() const;
    // How long the PPD's text is.
    std::size_t bytes() const noexcept { return text_.size(); }
    // The model's name for people; empty without one.
    std::string modelName() const;

  private:
    explicit PPDFile(ppd_file_t* record) noexcept : record_(record) {}

    ppd_file_t* record_ = nullptr;
    std::string name_;
    KeptText text_;
};

// Whether the option lists the choice; one that takes several has them with commas between, or
// None.  Nothing is offered where there is no option.
bool offers(const ppd_option_t* option, std::string_view choice) noexcept;

} // namespace dialog
