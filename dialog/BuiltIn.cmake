# Writes RESULT, the bytes of PPD and LABEL as C++.

function(bytes_of path result)
  file(READ ${path} hex HEX)
  string(REGEX REPLACE "(..)" "0x\\1," list "${hex}")
  string(REGEX REPLACE "(................................................................................)" "\\1\n    " list "${list}")
  set(${result} "${list}" PARENT_SCOPE)
endfunction()

bytes_of(${PPD} ppd)
bytes_of(${LABEL} label)
file(WRITE ${RESULT} "#include \"dialog/BuiltIn.hpp\"

namespace dialog {

namespace {

constexpr unsigned char kPPD[] = {
    ${ppd}};

constexpr unsigned char kLabel[] = {
    ${label}};

} // namespace

std::string_view samplePPD() noexcept
{
    return {reinterpret_cast<const char*>(kPPD), sizeof kPPD};
}

std::string_view sampleLabel() noexcept
{
    return {reinterpret_cast<const char*>(kLabel), sizeof kLabel};
}

} // namespace dialog
")
