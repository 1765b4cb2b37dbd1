#include "host/faults/import_faults.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "host/base/host_error.h"

// Every diverted call comes here with its Function in r10. The call goes on to the original with
// its registers and stack as they were, or fails. The stack can be unwound through it.
__asm__(R"(
	.text
	.globl	zn_diverted_call
	.def	zn_diverted_call; .scl 2; .type 32; .endef
	.seh_proc	zn_diverted_call
zn_diverted_call:
	subq	$0x98, %rsp
	.seh_stackalloc	0x98
	.seh_endprologue
	movq	%rcx, 0x20(%rsp)
	movq	%rdx, 0x28(%rsp)
	movq	%r8, 0x30(%rsp)
	movq	%r9, 0x38(%rsp)
	movq	%r10, 0x40(%rsp)
	movups	%xmm0, 0x50(%rsp)
	movups	%xmm1, 0x60(%rsp)
	movups	%xmm2, 0x70(%rsp)
	movups	%xmm3, 0x80(%rsp)
	movq	%r10, %rcx
	leaq	0x20(%rsp), %rdx
	movq	0x98(%rsp), %r8
	call	*0x10(%r10)
	movq	0x20(%rsp), %rcx
	movq	0x28(%rsp), %rdx
	movq	0x30(%rsp), %r8
	movq	0x38(%rsp), %r9
	movq	0x40(%rsp), %r10
	movups	0x50(%rsp), %xmm0
	movups	0x60(%rsp), %xmm1
	movups	0x70(%rsp), %xmm2
	movups	0x80(%rsp), %xmm3
	addq	$0x98, %rsp
	testb	%al, %al
	jne	1f
	jmp	*(%r10)
1:	movq	0x8(%r10), %rax
	ret
	.seh_endproc
)");
extern "C" void zn_diverted_call();

namespace zn::host {
namespace {

constexpr std::size_t kCodeSize = 32;   // of one diversion
constexpr std::size_t kPathLength = 5;  // callers that tell a call site
constexpr ULONG kMaxFrames = 16;

// mov r10, function; mov rax, zn_diverted_call; jmp rax
void WriteCode(std::byte* code, const void* function) {
  constexpr unsigned char kLoadR10[] = {0x49, 0xBA};
  constexpr unsigned char kLoadRax[] = {0x48, 0xB8};
  constexpr unsigned char kJumpRax[] = {0xFF, 0xE0};
  void (*const target)() = &zn_diverted_call;
  const auto append = [&code](const void* bytes, std::size_t size) {
    std::memcpy(code, bytes, size);
    code += size;
  };
  append(kLoadR10, sizeof kLoadR10);
  append(&function, sizeof function);
  append(kLoadRax, sizeof kLoadRax);
  append(&target, sizeof target);
  append(kJumpRax, sizeof kJumpRax);
}

std::size_t SizeOf(HMODULE module) {
  const auto* base = reinterpret_cast<const std::byte*>(module);
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  return reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew)
      ->OptionalHeader.SizeOfImage;
}

}  // namespace

std::string CallText(const CallSite& site, int call) {
  std::string text = site.function + " call " + std::to_string(call) + " at";
  for (const std::size_t offset : site.path) {
    std::array<char, 16> hex{};
    std::snprintf(hex.data(), hex.size(), " +0x%zx", offset);
    text += hex.data();
  }
  return text;
}

ImportFaults::ImportFaults(HMODULE module)
    : module_(module), moduleSize_(SizeOf(module)), thread_(::GetCurrentThreadId()) {
  std::vector<std::string> names;
  for (const std::string& name : ImportedFunctions(module)) {
    if (const FailingCall* failing = FindFailingCall(name.c_str())) {
      names.push_back(name);
      functions_.push_back({nullptr, failing->result, &Decide, this, failing});
    }
  }
  code_ = static_cast<std::byte*>(::VirtualAlloc(nullptr, functions_.size() * kCodeSize,
                                                 MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE));
  if (code_ == nullptr) {
    ThrowSystemError("no memory for the diversions");
  }
  for (std::size_t i = 0; i < functions_.size(); ++i) {
    std::byte* code = code_ + i * kCodeSize;
    WriteCode(code, &functions_[i]);
    patches_.emplace_back(module, names[i].c_str(), reinterpret_cast<void (*)()>(code));
    functions_[i].original = patches_.back().Original<void>();
  }
}

ImportFaults::~ImportFaults() {
  patches_.clear();
  ::VirtualFree(code_, 0, MEM_RELEASE);
}

void ImportFaults::Record() {
  calls_.clear();
  isRecording_ = true;
}

ImportFaults::Calls ImportFaults::TakeRecord() {
  isRecording_ = false;
  return std::move(calls_);
}

void ImportFaults::Arm(const CallSite& site, int call) {
  callsLeft_ = call;
  site_ = &site;
}

bool ImportFaults::Disarm() {
  site_ = nullptr;
  return callsLeft_ <= 0;
}

bool ImportFaults::Decide(Function& function, const CallArguments& arguments, void* returnAddress) {
  ImportFaults& self = *function.owner;
  const FailingCall& failing = *function.failing;
  if (::GetCurrentThreadId() != self.thread_) {
    return false;
  }
  if (self.isRecording_) {
    ++self.calls_[{failing.function, self.PathOf(failing, returnAddress)}];
    return false;
  }
  const CallSite* site = self.site_;
  if (site == nullptr || site->path.front() != self.OffsetOf(returnAddress) ||
      site->function != failing.function ||
      (failing.byCallers && site->path != self.PathOf(failing, returnAddress)) ||
      --self.callsLeft_ != 0) {
    return false;
  }
  if (failing.fail != nullptr) {
    function.result = failing.fail(arguments);
  }
  errno = failing.error == ERROR_DISK_FULL       ? ENOSPC
          : failing.error == ERROR_ACCESS_DENIED ? EACCES
                                                 : ENOMEM;
  ::SetLastError(failing.error);
  return true;
}

std::vector<std::size_t> ImportFaults::PathOf(const FailingCall& call, void* returnAddress) const {
  std::vector<std::size_t> path{OffsetOf(returnAddress)};
  if (!call.byCallers) {
    return path;
  }
  std::array<void*, kMaxFrames> frames{};
  const USHORT count = ::RtlCaptureStackBackTrace(0, kMaxFrames, frames.data(), nullptr);
  bool isInModule = false;
  for (USHORT i = 0; i < count && path.size() < kPathLength; ++i) {
    const std::size_t offset = OffsetOf(frames[i]);
    if (isInModule && offset == 0) {
      break;
    }
    if (isInModule) {
      path.push_back(offset);
    }
    isInModule = isInModule || frames[i] == returnAddress;
  }
  return path;
}

std::size_t ImportFaults::OffsetOf(const void* address) const {
  const auto offset = static_cast<std::size_t>(static_cast<const std::byte*>(address) -
                                               reinterpret_cast<const std::byte*>(module_));
  return offset < moduleSize_ ? offset : 0;
}

}  // namespace zn::host
