#include "hosts/com/Registration.h"

#include <array>
#include <string>

namespace com {

namespace {

const std::wstring kClasses = L"Software\\Classes\\";

HKEY RootOf(RegistrationScope scope) {
  return scope == RegistrationScope::kUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

std::wstring TextOf(const CLSID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

std::wstring ClassKey(const ServedClass& served) { return kClasses + L"CLSID\\" + TextOf(served.id); }

HRESULT Put(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& value) {
  const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
  return HRESULT_FROM_WIN32(static_cast<DWORD>(RegSetKeyValueW(root, key.c_str(), name, REG_SZ, value.c_str(), size)));
}

std::wstring FileOf(HMODULE library) {
  std::wstring file(32768, L'\0');
  file.resize(GetModuleFileNameW(library, file.data(), static_cast<DWORD>(file.size())));
  return file;
}

}  // namespace

HRESULT Register(const ServedClass& served, HMODULE library, RegistrationScope scope) {
  const HKEY root = RootOf(scope);
  const std::wstring classKey = ClassKey(served);
  const std::wstring program = kClasses + served.progId;
  const struct {
    std::wstring key;
    const wchar_t* name;
    std::wstring value;
  } values[] = {
      {classKey, nullptr, served.name},
      {classKey + L"\\InprocServer32", nullptr, FileOf(library)},
      {classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {classKey + L"\\ProgID", nullptr, served.progId},
      {program, nullptr, served.name},
      {program + L"\\CLSID", nullptr, TextOf(served.id)},
  };
  for (const auto& [key, name, value] : values) {
    const HRESULT result = Put(root, key, name, value);
    if (SUCCEEDED(result)) continue;
    Unregister(served, scope);
    return result;
  }
  return S_OK;
}

HRESULT Unregister(const ServedClass& served, RegistrationScope scope) {
  HRESULT result = S_OK;
  for (const std::wstring& key : {ClassKey(served), kClasses + served.progId}) {
    const LSTATUS status = RegDeleteTreeW(RootOf(scope), key.c_str());
    const bool gone = status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
    if (!gone) result = HRESULT_FROM_WIN32(static_cast<DWORD>(status));
  }
  return result;
}

}  // namespace com
