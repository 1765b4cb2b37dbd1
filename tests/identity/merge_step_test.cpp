// Merging through the shipped DLL: which printers get the user's data, and which data.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "devmode/devmode.h"
#include "iat_patch.h"
#include "test_queue.h"
#include "tests/oemps/plugin_client.h"
#include "user_registry.h"

namespace zn::test {
namespace {

constexpr DWORD kShared = PRINTER_ATTRIBUTE_SHARED;
constexpr char kServer[] = "\\\\server";
constexpr char kPrinter[] = "\\\\server\\printer";
constexpr char kUserInfo[] = "Software\\Zentrik\\ZN Print Driver Data\\printer{guid}\\UserInfo";

// What the DLL is told of the printer.
struct ToldPrinter {
  const char* server = kServer;
  const char* printer = kPrinter;
  DWORD attributes = kShared;
  bool fails = false;
  // The printer's data: the size told at first, the size and the status of the read itself.
  DWORD dataSizeTold = 0;
  DWORD dataSizeRead = 0;
  DWORD dataStatus = ERROR_SUCCESS;
};
ToldPrinter g_told;
decltype(&::GetPrinterA) g_getPrinter;

BOOL WINAPI GetToldPrinter(HANDLE printer, DWORD level, BYTE* memory, DWORD size, DWORD* need) {
  if (g_told.fails && memory != nullptr) {
    ::SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
  }
  const BOOL told = g_getPrinter(printer, level, memory, size, need);
  if (told != FALSE && level == 2 && memory != nullptr) {
    auto* info = reinterpret_cast<PRINTER_INFO_2A*>(memory);
    info->pServerName = const_cast<char*>(g_told.server);
    info->pPrinterName = const_cast<char*>(g_told.printer);
    info->Attributes = g_told.attributes;
  }
  return told;
}

DWORD WINAPI GetToldPrinterData(HANDLE, const char*, const char*, DWORD*, BYTE* data, DWORD size,
                                DWORD* need) {
  if (data == nullptr || size == 0) {
    *need = g_told.dataSizeTold;
    return *need == 0 ? ERROR_SUCCESS : ERROR_MORE_DATA;
  }
  *data = 5;
  *need = g_told.dataSizeRead;
  return g_told.dataStatus;
}

class MergeStep : public testing::Test {
 protected:
  static void SetUpTestSuite() { queue_ = std::make_unique<TestQueue>(); }
  static void TearDownTestSuite() { queue_.reset(); }

  MergeStep() : getPrinter_(plugIn_.Module(), "GetPrinterA", &GetToldPrinter) {
    g_getPrinter = getPrinter_.Original<std::remove_pointer_t<decltype(g_getPrinter)>>();
    g_told = {};
    object_ = plugIn_.Object();
    source_.SetDefaults();
    destination_.SetDefaults();
    source_.SetText(devmode::kJobOwnerName, "source name");
    source_.SetText(devmode::kJobOwnerPassword, "source password");
    source_.SetText(devmode::kAccountId, "source account");
    source_.SetDWord(devmode::kOverWriteFlag, 7);
    destination_.SetDWord(devmode::kManagementMethod, 8);
    destination_.SetDWord(devmode::kOwnerNameSource, 9);
    registry_.SetText("Printers\\Connections\\,,server,printer", "GuidPrinter", "{guid}");
    SetMethod(1);
  }

  static void SetMethod(BYTE method) {
    EXPECT_EQ(::SetPrinterDataExA(queue_->Handle(), "PrinterDriverData", "ManageMethod", REG_BINARY,
                                  &method, sizeof method),
              DWORD{ERROR_SUCCESS});
  }

  void StoreUserData(const std::string& specify) const {
    registry_.SetText(kUserInfo, "SpecifyJobOwnerName_User", specify);
    registry_.SetText(kUserInfo, "JobOwnerName_User", "entered");
    registry_.SetText(kUserInfo, "JobOwnerNamePassword_User", "secret");
    registry_.SetText(kUserInfo, "AccountID_User", "account");
  }

  HRESULT Run(HANDLE printer = queue_->Handle(), DWORD mode = OEMDM_MERGE) {
    OEMDMPARAM param{};
    param.cbSize = sizeof param;
    param.hPrinter = printer;
    param.pOEMDMIn = &source_;
    param.pOEMDMOut = &destination_;
    param.cbBufSize = 0;  // tells no size
    return object_->DevMode(mode, &param);
  }

  struct Data {
    std::uint32_t method, source;
    std::string owner, password, account;
    std::uint32_t flag;

    bool operator==(const Data&) const = default;
    friend void PrintTo(const Data& data, std::ostream* out) {
      *out << data.method << ' ' << data.source << " '" << data.owner << "' '" << data.password
           << "' '" << data.account << "' " << data.flag;
    }
  };
  [[nodiscard]] Data Merged() const {
    return {destination_.GetDWord(devmode::kManagementMethod),
            destination_.GetDWord(devmode::kOwnerNameSource),
            std::string(destination_.GetText(devmode::kJobOwnerName)),
            std::string(destination_.GetText(devmode::kJobOwnerPassword)),
            std::string(destination_.GetText(devmode::kAccountId)),
            destination_.GetDWord(devmode::kOverWriteFlag)};
  }
  [[nodiscard]] static Data Untouched(std::uint32_t flag) {
    return {8, 9, "source name", "source password", "source account", flag};
  }
  [[nodiscard]] static std::string LogonName() {
    char name[257] = "";
    DWORD size = sizeof name;
    ::GetUserNameA(name, &size);
    return std::string(name).substr(0, 32);
  }

  static inline std::unique_ptr<TestQueue> queue_;
  UserRegistry registry_;
  PlugIn plugIn_;
  ImportPatch getPrinter_;
  ComPtr<IPrintOemUI> object_;
  CDevMode source_{};
  CDevMode destination_{};
};

TEST_F(MergeStep, OnlyANamedPrinterThatAServerSharesGetsTheUsersData) {
  struct Row {
    const char *server, *printer;
    DWORD attributes;
    Data merged;
  };
  StoreUserData("EnterName");
  const Data users{1, 1, "entered", "secret", "account", 1};
  for (const Row& row : {Row{kServer, kPrinter, PRINTER_ATTRIBUTE_SHARED, users},
                         Row{kServer, kPrinter, PRINTER_ATTRIBUTE_NETWORK, users},
                         Row{kServer, "\\\\server\\CSR|{guid}", PRINTER_ATTRIBUTE_SHARED, users},
                         Row{kServer, kPrinter, PRINTER_ATTRIBUTE_LOCAL, Untouched(7)},
                         Row{nullptr, kPrinter, PRINTER_ATTRIBUTE_SHARED, Untouched(7)},
                         Row{"", kPrinter, PRINTER_ATTRIBUTE_NETWORK, Untouched(7)},
                         Row{kServer, nullptr, PRINTER_ATTRIBUTE_SHARED, Untouched(1)},
                         Row{kServer, "", PRINTER_ATTRIBUTE_SHARED, Untouched(1)}}) {
    g_told.server = row.server;
    g_told.printer = row.printer;
    g_told.attributes = row.attributes;
    destination_.SetDWord(devmode::kManagementMethod, 8);
    destination_.SetDWord(devmode::kOwnerNameSource, 9);
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(Merged(), row.merged) << testing::PrintToString(row.server) << " "
                                    << testing::PrintToString(row.printer) << " " << row.attributes;
  }
}

TEST_F(MergeStep, OwnerIsTheLogonNameUnlessANameIsEntered) {
  EXPECT_EQ(Run(), S_OK);
  EXPECT_EQ(Merged(), (Data{1, 0, LogonName(), "", "", 1})) << "no user data";
  StoreUserData("LoginName");
  EXPECT_EQ(Run(), S_OK);
  EXPECT_EQ(Merged(), (Data{1, 0, LogonName(), "secret", "account", 1}));
}

TEST_F(MergeStep, MethodOfThePrinter) {
  StoreUserData("EnterName");
  SetMethod(0);
  EXPECT_EQ(Run(), S_OK);
  EXPECT_EQ(Merged(), (Data{0, 0, "", "", "", 1}));

  SetMethod(255);
  EXPECT_EQ(Run(), S_OK);
  EXPECT_EQ(Merged(), (Data{255, 1, "entered", "secret", "account", 1}));

  DWORD wide = 0x01020304;  // only the first byte counts
  ::SetPrinterDataExA(queue_->Handle(), "PrinterDriverData", "ManageMethod", REG_DWORD,
                      reinterpret_cast<BYTE*>(&wide), sizeof wide);
  EXPECT_EQ(Run(), S_OK);
  EXPECT_EQ(Merged().method, 4U);
}

TEST_F(MergeStep, UnreadableMethodLeavesTheUsersDataOut) {
  const ImportPatch data(plugIn_.Module(), "GetPrinterDataExA", &GetToldPrinterData);
  StoreUserData("EnterName");
  struct Row {
    DWORD told, read, status;
  };
  for (const Row& row : {Row{0, 0, ERROR_SUCCESS}, Row{4, 0, ERROR_SUCCESS},
                         Row{4, 4, ERROR_FILE_NOT_FOUND}, Row{0x4000'0000, 4, ERROR_SUCCESS}}) {
    g_told.dataSizeTold = row.told;
    g_told.dataSizeRead = row.read;
    g_told.dataStatus = row.status;
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(Merged(), Untouched(1)) << row.told << " " << row.read;
  }
  registry_.Clear();  // without user data it counts as off
  EXPECT_EQ(Run(), S_OK);
  EXPECT_EQ(Merged(), (Data{0, 0, "", "", "", 1}));
}

TEST_F(MergeStep, OneMissingValueLeavesAllFields) {
  for (const char* value : {"SpecifyJobOwnerName_User", "JobOwnerName_User",
                            "JobOwnerNamePassword_User", "AccountID_User"}) {
    StoreUserData("EnterName");
    registry_.DeleteValue(kUserInfo, value);
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(Merged(), Untouched(1)) << value;
    registry_.Set(kUserInfo, value, REG_BINARY, "");  // no bytes: nothing to read
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(Merged(), Untouched(1)) << value;
  }
}

TEST_F(MergeStep, ValuesOfAllKindsAreCutToTheirFields) {
  struct Row {
    DWORD type;
    std::string bytes, text;
  };
  for (const Row& row : {Row{REG_SZ, std::string("\0", 1), ""}, Row{REG_BINARY, "no end", "no end"},
                         Row{REG_BINARY, std::string("two\0parts", 9), "two"},
                         Row{REG_DWORD, std::string("ABC\0", 4), "ABC"},
                         Row{REG_BINARY, std::string(65536, 'x'), std::string(255, 'x')},
                         Row{REG_SZ, std::string(32, 'y') + '\0', std::string(32, 'y')}}) {
    SCOPED_TRACE(row.bytes.size());
    StoreUserData("EnterName");
    for (const char* value : {"JobOwnerName_User", "JobOwnerNamePassword_User", "AccountID_User"}) {
      registry_.Set(kUserInfo, value, row.type, row.bytes);
    }
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(Merged(), (Data{1, 1, row.text.substr(0, 32), row.text.substr(0, 24),
                              row.text.substr(0, 33), 1}));
  }
}

TEST_F(MergeStep, UnreadablePrinterFailsAfterTheFieldsAreMerged) {
  source_.SetDWord(devmode::kTiffDpi, 1201);
  destination_.SetDWord(devmode::kTiffDpi, 5);
  g_told.fails = true;
  EXPECT_EQ(Run(), E_FAIL);
  EXPECT_EQ(destination_.GetTiffDPI(), 600U);
  EXPECT_EQ(Merged(), Untouched(7));
  g_told.fails = false;
  EXPECT_EQ(Run(nullptr), E_FAIL);
  EXPECT_EQ(Run(reinterpret_cast<HANDLE>(std::uintptr_t{0x7777})), E_FAIL);
}

TEST_F(MergeStep, ConversionNeitherRepairsNorAuthenticates) {
  StoreUserData("EnterName");
  source_.SetDWord(devmode::kTiffDpi, 1201);
  EXPECT_EQ(Run(queue_->Handle(), OEMDM_CONVERT), S_OK);
  EXPECT_EQ(destination_.GetTiffDPI(), 1201U);
  EXPECT_EQ(Merged(), Untouched(0));
}

TEST_F(MergeStep, BadArguments) {
  struct Row {
    DWORD mode;
    void *in, *out;
    DWORD bufferSize, lastError;
  };
  for (const Row& row :
       {Row{0, &source_, &destination_, kDevModeSize, ERROR_INVALID_PARAMETER},
        Row{5, &source_, &destination_, kDevModeSize, ERROR_INVALID_PARAMETER},
        Row{OEMDM_DEFAULT, &source_, nullptr, 0, ERROR_INVALID_PARAMETER},
        Row{OEMDM_CONVERT, nullptr, &destination_, 0, ERROR_INVALID_PARAMETER},
        Row{OEMDM_MERGE, &source_, nullptr, 0, ERROR_INVALID_PARAMETER},
        Row{OEMDM_DEFAULT, nullptr, &destination_, kDevModeSize - 1, ERROR_INSUFFICIENT_BUFFER}}) {
    SCOPED_TRACE(row.mode);
    const CDevMode before = destination_;
    OEMDMPARAM param{};
    param.hPrinter = queue_->Handle();
    param.pOEMDMIn = row.in;
    param.pOEMDMOut = row.out;
    param.cbBufSize = row.bufferSize;
    ::SetLastError(0xDEAD);
    EXPECT_EQ(object_->DevMode(row.mode, &param), E_FAIL);
    EXPECT_EQ(::GetLastError(), row.lastError);
    EXPECT_TRUE(std::ranges::equal(before.Bytes(), destination_.Bytes()));
  }
}

}  // namespace
}  // namespace zn::test
