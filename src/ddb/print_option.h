// placeholder
#pragma once
namespace ddb {
class CPrintOption;
class CPrintOptionEx;
}  // namespace ddb
