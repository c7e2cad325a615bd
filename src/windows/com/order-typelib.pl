#!/usr/bin/perl
# Puts the types of a compiled type library into the order given:   order-typelib.pl FILE NAME...
#
# The interface compiler writes an enumeration where an interface first uses it, whatever the description says. The order
# is published with the control, so it is mended here: the records of the types change places, and everything that refers
# to a type by its place is told the new one. FILE is in the "MSFT" format; all numbers are 32 bits, little endian.
use strict;
use warnings;

my ($file, @order) = @ARGV;
die "usage: order-typelib.pl FILE NAME...\n" unless @order;
open(my $in, '<:raw', $file) or die "$file: $!\n";
my $data = do { local $/; <$in> };
close($in);

sub number { return unpack('V', substr($data, $_[0], 4)) }
sub set_number { substr($data, $_[0], 4) = pack('V', $_[1]) }

die "$file: not a type library that this program knows\n" unless substr($data, 0, 4) eq 'MSFT';
my ($record_size, $header_size, $none) = (0x64, 0x54, 0xFFFFFFFF);
my $count = number(0x20);
my $has_help_library = number(0x14) & 0x100;
my $offsets = $header_size + ($has_help_library ? 4 : 0);
my $directory = $offsets + 4 * $count;
sub segment { my $entry = $directory + 16 * $_[0]; return (number($entry), number($entry + 4)) }
my ($types) = segment(0);
my ($references, $references_size) = segment(3);
my ($guids, $guids_size) = segment(5);
my ($names, $names_size) = segment(7);
my ($descriptions, $descriptions_size) = segment(9);

# The place of each type by name.
my %place;
for my $i (0 .. $count - 1) {
    my $name = $names + number($types + $i * $record_size + 0x34);
    $place{substr($data, $name + 12, number($name + 8) & 0xFF)} = $i;
}
die "$file has the types " . join(', ', sort keys %place) . "\n"
    if $count != @order || grep { !exists $place{$_} } @order;

my @new_place;
$new_place[$place{$order[$_]}] = $_ for 0 .. $#order;

# A reference to a type of this library is the distance of its record; other libraries' types have the lowest bit set.
sub mend {
    my ($at) = @_;
    my $value = number($at);
    return if $value == $none || $value % $record_size || $value >= $count * $record_size;
    set_number($at, $new_place[$value / $record_size] * $record_size);
}

# Types of this library that interfaces inherit from. Other kinds have a distance in the table of references there.
for my $i (0 .. $count - 1) {
    my $record = $types + $i * $record_size;
    my $kind = number($record) & 0xF;
    mend($record + 0x54) if $kind == 3;
    set_number($record, (number($record) & 0xFFFF) | ($new_place[$i] << 16));
}
for (my $at = $references; $at < $references + $references_size; $at += 16) { mend($at) }
for (my $at = $guids; $at < $guids + $guids_size; $at += 24) { mend($at + 16) }
for (my $at = $names; $at < $names + $names_size;) {
    mend($at);
    $at += 12 + ((number($at + 8) & 0xFF) + 3 & ~3);
}
my $user_defined = 29;
for (my $at = $descriptions; $at < $descriptions + $descriptions_size; $at += 8) {
    mend($at + 4) if (number($at) & 0xFFFF) == $user_defined;
}

my @records = map { substr($data, $types + $_ * $record_size, $record_size) } 0 .. $count - 1;
substr($data, $types + $new_place[$_] * $record_size, $record_size) = $records[$_] for 0 .. $count - 1;

open(my $out, '>:raw', $file) or die "$file: $!\n";
print $out $data;
close($out) or die "$file: $!\n";
