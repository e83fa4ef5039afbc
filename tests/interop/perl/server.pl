#!/usr/bin/perl
# A content manager whose protocol code is SOAP::Lite's, over its own HTTP daemon.
use strict;
use warnings;
use utf8;
use SOAP::Lite;
use SOAP::Transport::HTTP;

my $types = 'http://developer.vantor.example/schemas/tavel/3/';

# Texts of a type that only the service knows are texts.
package Reader;
our @ISA = ('SOAP::Deserializer');

sub typecast {
    my ($self, $value, $name, $attributes, $children, $type) = @_;
    return $value if !ref $children && ($type // '') =~ /^\{\Q$types\E\}/;
    return shift->SUPER::typecast(@_);
}

package ContentManager;

# A typed value, or nil; what the values are is said here, since Perl does not know.
sub value {
    my ($name, $type, $value) = @_;
    return SOAP::Data->name($name)->type($type)->value($value);
}

sub property {
    my ($name, $kind, $type, $value) = @_;
    return SOAP::Data->name($name)->uri($types)->attr({'xsi:type' => "lt:$kind"})
        ->value(\value('value', $type, $value));
}

sub object {
    my ($class, @properties) = @_;
    return SOAP::Data->name('item')->attr({'xsi:type' => "lt:$class"})->value(\SOAP::Data->value(@properties));
}

sub array {
    my ($name, $class, @items) = @_;
    return SOAP::Data->name($name)->attr({
        'xsi:type' => 'soapenc:Array', 'soapenc:arrayType' => "lt:$class\[" . @items . ']', 'xmlns:lt' => $types,
    })->value(\SOAP::Data->value(@items));
}

sub refuse {
    die SOAP::Fault->faultcode('Client')->faultstring($_[0])->faultdetail($_[1]);
}

sub query {
    my ($self, $path, $properties, $sort, $options) = @_;
    refuse('Refused: Größe & <more>', SOAP::Data->name('exception')->value(\SOAP::Data->value(
        value('severity', 'string', 'error'),
        SOAP::Data->name('message')->value(\value('messageString', 'string', 'ask for /content')),
    ))) if $path eq '/refused';
    my @items = map { object('folder',
        property('defaultName', 'tokenProp', 'string', $_),
        property('displaySequence', 'nonNegativeIntegerProp', 'integer', $options->{maxObjects}),
        property('hidden', 'booleanProp', 'boolean', $options->{schemaInfo}),
    ) } @$properties;
    push @items, SOAP::Data->name('item')->attr({'xsi:nil' => 'true'});
    push @items, object('report',
        property('searchPath', 'stringProp', 'string', $path),
        SOAP::Data->name('defaultDescription')->attr({'xsi:nil' => 'true'}));
    return array('result', 'baseClass', @items);
}

sub add {
    my ($self, $parent, $objects, $options) = @_;
    refuse('The parent or the options are not what was sent')
        if $parent ne '/content' || ($options->{faultIfObjectReferenced} // 1) || $options->{updateAction} ne 'replace';
    my %kinds = (defaultName => ['tokenProp', 'string'], hidden => ['booleanProp', 'boolean'],
        displaySequence => ['nonNegativeIntegerProp', 'integer'], data => ['base64BinaryMIMEProp', 'base64Binary']);
    my @items;
    for my $object (@$objects) {
        my @names = grep { $object->{$_} } sort keys %kinds;
        my @properties = map { property($_, @{$kinds{$_}}, $object->{$_}{value}) } @names;
        if (my $name = $object->{name}) {
            my @tokens = map { SOAP::Data->name('item')->attr({'xsi:type' => 'lt:multilingualToken'})->value(
                \SOAP::Data->value(value('locale', 'string', $_->{locale}), value('value', 'string', $_->{value}))) }
                @{$name->{value}};
            push @properties, SOAP::Data->name('name')->attr({'xsi:type' => 'lt:multilingualTokenProp'})
                ->value(\array('value', 'multilingualToken', @tokens));
        }
        push @items, object(ref $object, @properties); # the class is what SOAP::Lite read from xsi:type
    }
    return array('result', 'baseClass', @items);
}

sub delete {
    my ($self, $objects, $options) = @_;
    refuse('The options are not nil') if defined $options;
    return SOAP::Data->name('result')->type('int')->value(scalar @$objects);
}

package main;

my $daemon = SOAP::Transport::HTTP::Daemon->new(LocalAddr => '127.0.0.1', LocalPort => 0, Timeout => 300)
    ->deserializer(Reader->new)
    ->on_action(sub {}) # takes any SOAPAction; its own form is "namespace#operation"
    ->dispatch_with({'http://developer.vantor.example/schemas/contentManagerService/1' => 'ContentManager'});
$| = 1;
print 'listening on ', $daemon->url, "\n";
$daemon->handle;
