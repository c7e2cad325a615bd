package Registration;

# What a control registers, as the program registration_table prints it: the one source of the installers' registry
# tables and of the manifest.
use strict;
use warnings;
use utf8;
use Digest::SHA qw(sha1);
use Exporter 'import';
our @EXPORT_OK = qw(read_table value name_uuid escape);

# Entries in the table's order: {key, name, text}; a key without values has neither name nor text.
# The table is that of the 64-bit control. The other one differs in the platform of the type library alone.
sub read_table {
    my ($file, $bits) = @_;
    open(my $in, '<:encoding(UTF-8)', $file) or die "$file: $!\n";
    my @entries;
    while (my $line = <$in>) {
        $line =~ s/[\r\n]+$//;
        my ($key, $name, $text) = split(/\t/, $line, 3);
        $key =~ s/\\win64$/\\win32/ if $bits == 32;
        push @entries, {key => $key, name => $name, text => $text};
    }
    die "$file: nothing is registered\n" unless @entries;
    return @entries;
}

# The text of a value of the first key that matches a pattern.
sub value {
    my ($entries, $pattern, $name) = @_;
    for my $entry (@$entries) {
        return $entry->{text} if $entry->{key} =~ $pattern && defined $entry->{name} && $entry->{name} eq ($name // '');
    }
    die "no value " . ($name // '(default)') . " below a key like $pattern\n";
}

# A UUID made from a name (version 5), in capitals: the same name gives the same one on every machine.
sub name_uuid {
    my ($name) = @_;
    my $space = pack('H*', '3df8583db3e14e2aab02f2db9441b680');
    my @bytes = unpack('C16', sha1($space . $name));
    $bytes[6] = ($bytes[6] & 0x0F) | 0x50;
    $bytes[8] = ($bytes[8] & 0x3F) | 0x80;
    return sprintf('%02X%02X%02X%02X-%02X%02X-%02X%02X-%02X%02X-%02X%02X%02X%02X%02X%02X', @bytes);
}

# A text as an attribute of XML.
sub escape {
    my ($text) = @_;
    my %entity = ('&' => '&amp;', '<' => '&lt;', '>' => '&gt;', '"' => '&quot;');
    $text =~ s/([&<>"])/$entity{$1}/g;
    return $text;
}

1;
