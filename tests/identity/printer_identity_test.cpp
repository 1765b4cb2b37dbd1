// The key name of a printer, at merge and at deletion.
#include "identity/printer_identity.h"

#include <gtest/gtest.h>

#include "user_registry.h"

namespace zn::test {
namespace {

constexpr char kGuid[] = "{6F1A0D3E-0001}";
constexpr char kOtherGuid[] = "{6F1A0D3E-0002}";
const std::string kConnections = "Printers\\Connections";

class PrinterIdentity : public testing::Test {
 protected:
  void Connect(const std::string& connection, const char* guid) const {
    registry_.SetText(kConnections + '\\' + connection, "GuidPrinter", guid);
  }

  UserRegistry registry_;
};

TEST_F(PrinterIdentity, KeyNameIsShortNameAndGuid) {
  Connect(",,server,printer", kGuid);
  Connect(",,server,\x95\x5c\x8e\xa6", kOtherGuid);  // a backslash as trail byte
  Connect(",,a,\x83\x8e\xa6", "{first}");  // two characters, the second begins in the middle
  registry_.CreateKey(kConnections + "\\,,server,nothing known");
  struct Row {
    std::string printer, keyName;
  };
  const Row rows[] = {
      {"\\\\elsewhere\\printer", std::string("printer") + kGuid},
      {"\\\\server\\Printer", "Printer"},
      {"\\\\server\\nothing known", "nothing known"},
      {"\\printer", "\\printer"},
      // Only whole characters are found.
      {"\\\\server\\\x8e\xa6", std::string("\x8e\xa6") + kOtherGuid},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(GetPrinterKeyName(row.printer), row.keyName) << row.printer;
  }
}

TEST_F(PrinterIdentity, FirstConnectionThatContainsTheShortNameWins) {
  Connect(",,b,big printer", kGuid);
  Connect(",,a,printer 2", kOtherGuid);
  HKEY connections = nullptr;
  char first[64] = "";
  ::RegOpenKeyA(HKEY_CURRENT_USER, kConnections.c_str(), &connections);
  ::RegEnumKeyA(connections, 0, first, sizeof first);
  ::RegCloseKey(connections);
  const bool isBigFirst = std::string_view(first) == ",,b,big printer";
  EXPECT_EQ(GetAuthenticatInfo("\\\\server\\printer"),
            std::string("printer") + (isBigFirst ? kGuid : kOtherGuid));
}

TEST_F(PrinterIdentity, LookUpCreatesTheKeyThatItReads) {
  EXPECT_EQ(GetAuthenticatInfo("\\\\server\\printer"), "printer");
  EXPECT_TRUE(registry_.Has(kConnections));
  EXPECT_EQ(GetGuidPrinter(kConnections + "\\,,server,new"), "");
  EXPECT_TRUE(registry_.Has(kConnections + "\\,,server,new"));
}

TEST_F(PrinterIdentity, OverlongGuidIsCut) {
  const std::string guid(1023, 'g');
  registry_.Set(kConnections + "\\,,server,printer", "GuidPrinter", REG_BINARY,
                std::string(65536, 'g'));
  EXPECT_EQ(GetGuidPrinter(kConnections + "\\,,server,printer"), guid);
  EXPECT_EQ(GetAuthenticatInfo("\\\\server\\printer"), ("printer" + guid).substr(0, 1023));
}

TEST_F(PrinterIdentity, DeletionFindsTheKeyOfTheMerge) {
  Connect(",,server,printer", kGuid);
  Connect(",,server,\x95\x5c\x8e\xa6", kOtherGuid);
  Connect(",,server,without guid", "");
  const std::string plain = std::string("printer") + kGuid;
  struct Row {
    std::string atMerge, atDeletion, keyName;
  };
  const Row rows[] = {
      {"\\\\server\\printer", "\\\\server\\printer", plain},
      {"\\\\server\\printer", "\\\\server\\printer,LocalOnly,x", "printer,LocalOnly"},
      {"\\\\server\\printer", "\\\\server\\printer,DrvConvert", plain},
      {"\\\\server\\printer", "printer", plain},
      {"\\\\server\\unconnected", "\\\\server\\unconnected", "unconnected"},
      {"\\\\server\\\x95\x5c\x8e\xa6", "\\\\server\\\x95\x5c\x8e\xa6",
       std::string("\x95\x5c\x8e\xa6") + kOtherGuid},
      {"\x95\x5c\x8e\xa6", "\x95\x5c\x8e\xa6", std::string("\x95\x5c\x8e\xa6") + kOtherGuid},
      {"\\\\server\\printer", "\\\\server\\printer,\\CSR|", plain},
      // Client-side rendering: known by the connection's GUID or by the printer's name.
      {std::string("\\\\server\\CSR|") + kGuid, std::string("\\\\server\\CSR|") + kGuid, plain},
      {"\\\\server\\CSR|printer", "\\\\server\\CSR|printer,DrvConvert", plain},
      {"\\\\server\\CSR|PRINTER", "\\\\server\\CSR|PRINTER", plain},
      {"\\CSR|printer", "\\CSR|printer", plain},
      {"\\\\server\\CSR|\\\\server\\printer", "\\\\server\\CSR|\\\\server\\printer", plain},
      {"\\\\server\\CSR|unconnected", "\\\\server\\CSR|unconnected", "unconnected"},
      // No part of another printer's name, and nobody's name, is taken for a printer.
      {"\\\\server\\CSR|print", "\\\\server\\CSR|print", "print"},
      {"\\\\server\\CSR|", "\\\\server\\CSR|", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.atDeletion);
    EXPECT_EQ(GetDeletePrinterName(row.atDeletion), row.keyName);
    if (row.keyName.find(',') == std::string::npos) {
      EXPECT_EQ(GetPrinterKeyName(row.atMerge), row.keyName);
    }
  }
}

TEST_F(PrinterIdentity, HostileNames) {
  const std::string endless(2000, 'p');
  EXPECT_EQ(GetPrinterKeyName(endless), std::string(1023, 'p'));
  EXPECT_EQ(GetPrinterKeyName("\\\\server\\CSR|" + endless), std::string(1023, 'p'));
  EXPECT_EQ(GetDeletePrinterName("\\" + endless), std::string(1023, 'p'));
  for (const char* name :
       {"", "\\", "\\\\", "\\\\server\\", ",", "\\,", "\x81", "\\\\server\\\x81"}) {
    EXPECT_LE(GetPrinterKeyName(name).size(), 2U) << name;
    EXPECT_LE(GetDeletePrinterName(name).size(), 2U) << name;
  }
}

}  // namespace
}  // namespace zn::test
