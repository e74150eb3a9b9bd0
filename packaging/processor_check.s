# Where the setup begins: goes on at `entry` on a processor with conditional moves (Pentium II and newer), which the
# compiled program needs and the setup's own code as well; otherwise says so and ends with exit code 5, without a box when
# the command line has /S. Only instructions of the 386 are used before that is known.
#
# `entry` and the addresses of the imported functions come from add_processor_check.pl.
.intel_syntax noprefix
.code32
.global start

.set ID_FLAG, 0x200000        # can be changed where there is CPUID
.set CONDITIONAL_MOVES, 0x8000
.set TOO_OLD, 5               # exit code, see setup.nsi

start:
  pushfd
  pop eax
  mov ecx, eax
  xor eax, ID_FLAG
  push eax
  popfd
  pushfd
  pop eax
  push ecx
  popfd
  xor eax, ecx
  test eax, ID_FLAG
  jz too_old
  push ebx
  mov eax, 1
  .byte 0x0F, 0xA2             # cpuid
  pop ebx
  test edx, CONDITIONAL_MOVES
  jz too_old
  jmp entry

too_old:
  call [GetCommandLineA]
next_character:
  cmp byte ptr [eax], 0
  je explain
  cmp word ptr [eax], 'S' << 8 | '/'
  je finish
  inc eax
  jmp next_character

explain:
  push offset box
  call [MessageBoxIndirectA]
finish:
  push TOO_OLD
  call [ExitProcess]

.align 4
box:                          # MSGBOXPARAMSA
  .long 40, 0, 0
  .long text, title
  .long 0x30                  # MB_ICONEXCLAMATION
  .long 0, 0, 0, 0
title:
  .asciz "Scrubhaven Pro Setup"
text:
  .ascii "Scrubhaven Pro needs a Pentium II or newer processor.\n\n"
  .asciz "This computer's processor is older. Nothing has been installed."
