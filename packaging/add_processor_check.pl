#!/usr/bin/perl
# add_processor_check.pl PROGRAM: adds processor_check.s to a 32-bit Windows program as its last section and as the place
# where it begins. The compiled start of an NSIS setup has instructions that an old processor lacks, so a check in the
# setup's script would come too late.
use strict;
use warnings;
use File::Basename qw(dirname);
use File::Temp qw(tempdir);

use constant { SECTION_HEADER => 40, EXECUTABLE_CODE => 0x60000020 };
my ($path) = @ARGV;

open(my $in, '<:raw', $path) or die "$path: $!\n";
my $pe = do { local $/; <$in> };
close $in;

sub dword { unpack 'V', substr $pe, $_[0], 4 }
sub word { unpack 'v', substr $pe, $_[0], 2 }
sub text { unpack 'Z*', substr $pe, $_[0] }
sub set_dword { substr($pe, $_[0], 4) = pack 'V', $_[1] }
sub round_up { my ($number, $step) = @_; int(($number + $step - 1) / $step) * $step }

my $header = dword(0x3C);
substr($pe, $header, 4) eq "PE\0\0" or die "$path is no Windows program\n";
my $optional = $header + 24;
word($optional) == 0x10B or die "$path is no 32-bit program\n";
my ($entry, $base, $section_step, $file_step, $image_size, $headers_size) =
  map { dword($optional + $_) } 16, 28, 32, 36, 56, 60;
my $section_count = word($header + 6);
my $sections = $optional + word($header + 20);
my $new_section = $sections + $section_count * SECTION_HEADER;
$new_section + SECTION_HEADER <= $headers_size or die "$path has no room for another section\n";

# Where the file has what is at an address relative to the program's base.
sub offset_of {
  my ($address) = @_;
  for my $section (map { $sections + $_ * SECTION_HEADER } 0 .. $section_count - 1) {
    my ($at, $size, $from) = map { dword($section + $_) } 12, 16, 20;
    return $address - $at + $from if $address >= $at && $address < $at + $size;
  }
  die sprintf "%s has nothing at %x\n", $path, $address;
}

# Imported functions, with the addresses at which the loader puts their own.
my %imports;
for (my $library = offset_of(dword($optional + 104)); dword($library + 12); $library += 20) {
  my ($names, $slots) = (dword($library), dword($library + 16));
  for (my $i = 0; my $name = dword(offset_of($names) + 4 * $i); ++$i) {
    $imports{ text(offset_of($name) + 2) } = $base + $slots + 4 * $i unless $name & 0x80000000;
  }
}

my $work = tempdir(CLEANUP => 1);
my @symbols = sprintf '--defsym=entry=0x%x', $base + $entry;
for my $function (qw(GetCommandLineA MessageBoxIndirectA ExitProcess)) {
  push @symbols, sprintf '--defsym=%s=0x%x', $function, $imports{$function} // die "$path does not import $function\n";
}
system('as', '--32', '-march=i386', '-o', "$work/check.o", dirname($0) . '/processor_check.s') == 0 or exit 1;
system('ld', '-m', 'elf_i386', '-e', 'start', sprintf('-Ttext=0x%x', $base + $image_size), '--oformat=binary', @symbols,
  '-o', "$work/check", "$work/check.o") == 0 or exit 1;
open(my $made, '<:raw', "$work/check") or die "$work/check: $!\n";
my $code = do { local $/; <$made> };

my $from = round_up(length $pe, $file_step);
substr($pe, $new_section, SECTION_HEADER) = pack 'a8 V4 V2 v2 V', '.check', length $code, $image_size,
  round_up(length $code, $file_step), $from, 0, 0, 0, 0, EXECUTABLE_CODE;
substr($pe, $header + 6, 2) = pack 'v', $section_count + 1;
set_dword($optional + 16, $image_size);
set_dword($optional + 56, $image_size + round_up(length $code, $section_step));
$pe .= "\0" x ($from - length $pe) . $code . "\0" x (round_up(length $code, $file_step) - length $code);

open(my $out, '>:raw', $path) or die "$path: $!\n";
print $out $pe;
close $out or die "$path: $!\n";
