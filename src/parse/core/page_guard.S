# uint32_t QmxCallGuarded(uint32_t (*body)(void*), void* argument, const PageGuard* guard)
#
# Calls body(argument) in a frame of its own whose exception handler is QmxGuardHandler.  When that
# abandons the body, it goes on at QmxGuardResume with the result that it has put into rax.
    .text
    .globl  QmxCallGuarded
    .def    QmxCallGuarded; .scl 2; .type 32; .endef
    .seh_proc QmxCallGuarded
    .seh_handler QmxGuardHandler, @except
QmxCallGuarded:
    subq    $56, %rsp               # 32 bytes for the body, the guard, alignment
    .seh_stackalloc 56
    .seh_endprologue
    movq    %r8, 40(%rsp)           # where the handler finds the guard
    movq    %rcx, %rax
    movq    %rdx, %rcx
    call    *%rax
    .globl  QmxGuardResume
    .def    QmxGuardResume; .scl 2; .type 32; .endef
QmxGuardResume:
    nop                             # the call's return address stays within the body of the frame
    addq    $56, %rsp
    ret
    .seh_endproc
