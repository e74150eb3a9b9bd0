#!/bin/bash
# check_program.sh EXE MAP: fails unless the oldest system that the program is made for can load and run it. MAP is the
# linker's map, which says where the code ends.
#
#   header         the 32-bit program is for Windows 95 (subsystem version 4.0), the 64-bit one for XP x64 (5.2)
#   imports        each one has a line in scripts/imports.txt, and the oldest system has the function
#   instructions   the 32-bit program has none that a Pentium II lacks, as those of MMX's successors. Nor has it MMX
set -uo pipefail
EXE=$1 MAP=$2
IMPORTS=$(dirname "${BASH_SOURCE[0]}")/imports.txt
# Of the processors since the Pentium Pro, without prefixes; tzcnt is bsf there, and pause is nop.
INSTRUCTIONS='adc|add|and|bsf|bsr|bswap|bt[crs]?|call|cbw|cdq|cl[cd]|cmc|cmov[a-z]+|cmps?|cmpxchg(8b)?|cpuid|cwde?|dec|div'
INSTRUCTIONS+='|idiv|imul|inc|int3?|j[a-z]+|lahf|lea|leave|lods|loop[a-z]*|mov|movs|movsx|movzx|mul|neg|nop|not|or|pause'
INSTRUCTIONS+='|pop[af]?|push[af]?|rc[lr]|rdtsc|ret|ro[lr]|sahf|sar|sbb|scas|set[a-z]+|shld?|shrd?|st[cd]|stos|sub|test'
INSTRUCTIONS+='|tzcnt|ud2|xadd|xchg|xlat|xor|f[2a-z][a-z0-9]*'
# The floating-point processor had these later.
LATER_INSTRUCTIONS='fisttp|fxsave|fxrstor|femms'
# The random generator of the compilers' library, which the program does not use, asks the processor before it uses them.
ASKED_FOR='rdrand|rdseed'
HEADERS=$(x86_64-w64-mingw32-objdump -p "$EXE") || exit 1
FAILED=0

complain() { echo "$*"; FAILED=1; }
field() { awk -v name="$1" '$1 == name { print $2; exit }' <<<"$HEADERS"; }

check_header() {
  local version flag
  version=$(field MajorSubsystemVersion).$(field MinorSubsystemVersion)
  [[ $version == "$1" ]] || complain "asks for subsystem version $version instead of $1"
  [[ $(field Subsystem) == 00000002 ]] || complain "is not a program with windows (subsystem $(field Subsystem))"
  for flag in DYNAMIC_BASE NX_COMPAT TERMINAL_SERVICE_AWARE; do
    grep -qw "$flag" <<<"$HEADERS" || complain "its header lacks $flag"
  done
}

# check_imports COLUMN SYSTEMS: compares the imports with a column of the list, which must hold one of SYSTEMS.
check_imports() {
  awk -v column="$1" -v systems="$2" -v list="${IMPORTS##*/}" '
    FNR == NR { if (NF == 4 && $1 !~ /^#/) oldest[$1 " " $2] = $column; next }
    /DLL Name:/ { library = tolower($3); sub(/\.dll$/, "", library); inside = 1; next }
    NF == 0 { inside = 0 }
    inside && NF == 3 && $1 != "vma:" {
      name = library " " $3
      imported[name] = 1
      if (!(name in oldest) || oldest[name] == "-") print "imports " name ", which nobody has reviewed: see " list
      else if (oldest[name] !~ "^(" systems ")$") print "imports " name ", which needs " oldest[name]
    }
    END {
      if (length(imported) == 0) print "imports nothing at all"
      for (name in oldest) if (oldest[name] != "-" && !(name in imported)) print "does not import " name ": see " list
    }' "$IMPORTS" - <<<"$HEADERS"
}

# Prints each instruction of the code once, without prefixes.
instructions() {
  x86_64-w64-mingw32-objdump -d -M intel --no-show-raw-insn --section=.text --stop-address="$1" "$EXE" |
    awk -F'\t' 'NF > 1 { print $2 }' |
    sed -E 's/^((rep[a-z]*|lock|cs|ds|es|ss|fs|gs|notrack|data16|bnd) +)+//; s/ .*//' | sort -u
}

check_instructions() {
  local end found
  # Tables follow the code in its section.
  end=$(awk '$2 == "__CTOR_LIST__" && $3 == "=" { print $1; exit }' "$MAP")
  [[ $end ]] || { complain "the map does not say where the code ends"; return; }
  found=$(instructions "$end")
  (($(wc -l <<<"$found") > 50)) || complain "no code was found"
  while read -r instruction; do
    complain "has the instruction $instruction, which a Pentium II lacks or the program must not have"
  done < <(grep -vxE "$INSTRUCTIONS|$ASKED_FOR" <<<"$found"; grep -xE "$LATER_INSTRUCTIONS" <<<"$found")
}

if grep -q 'pei-i386$' <<<"$HEADERS"; then
  check_header 4.0
  COMPLAINTS=$(check_imports 3 '95|95[+]ie4|95-stub')
  check_instructions
else
  check_header 5.2
  COMPLAINTS=$(check_imports 4 'xp64')
fi
[[ ! $COMPLAINTS ]] || complain "$COMPLAINTS"
exit "$FAILED"
