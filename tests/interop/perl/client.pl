#!/usr/bin/perl
# SOAP::Lite against the embedded bus: client.pl URL query|refused
use strict;
use warnings;
use utf8;
use SOAP::Lite;

binmode STDERR, ':utf8';

sub expect {
    my ($holds, $what) = @_;
    die "expected $what\n" unless $holds;
}

my ($url, $case) = @ARGV;
my $service = 'http://developer.vantor.example/schemas/contentManagerService/1';
my $client = SOAP::Lite->proxy($url, timeout => 10)->default_ns($service)
    ->on_action(sub { 'http://www.vantor.example/xmlns/prod/vantor/contentManagerService/202004/' })
    ->on_fault(sub { my ($soap, $reply) = @_; ref $reply ? $reply : die $soap->transport->status, "\n" });
$client->serializer->register_ns('http://developer.vantor.example/schemas/tavel/3/', 'tv');

# A value of a type of the bus, and an array of such.
sub typed {
    my ($name, $type, $value) = @_;
    return SOAP::Data->name($name)->attr({'xsi:type' => "tv:$type"})->value($value);
}

sub array {
    my ($name, $type, @items) = @_;
    return SOAP::Data->name($name)->value(\SOAP::Data->value(@items))
        ->attr({'xsi:type' => 'soapenc:Array', 'soapenc:arrayType' => "tv:$type\[" . @items . ']'});
}

sub query {
    my ($path) = @_;
    return $client->call('query',
        typed('searchPath', 'searchPathMultipleObject', $path),
        array('properties', 'propEnum', map { typed('item', 'propEnum', $_) } qw(defaultName searchPath hidden name)),
        array('sortBy', 'sort', typed('item', 'sort', \typed('propName', 'propEnum', 'defaultName'))),
        typed('options', 'queryOptions', \SOAP::Data->name('maxObjects')->type('int')->value(10)));
}

if ($case eq 'query') {
    my $reply = query("/content//folder[\@name='Regions']/report");
    expect(!$reply->fault, 'no fault, got ' . ($reply->faultstring // ''));
    my $found = $reply->result;
    expect(@$found == 3, 'three objects, got ' . @$found);
    my ($coast) = grep { $_->{defaultName}{value} eq 'Ålesund & coast' } @$found;
    expect($coast, 'Ålesund & coast among ' . join ', ', map { $_->{defaultName}{value} } @$found);
    expect(ref $coast eq 'report', 'a report, got ' . ref $coast);
    expect(!$coast->{hidden}{value}, "a boolean, got $coast->{hidden}{value}");
    my ($south) = grep { $_->{defaultName}{value} eq 'South' } @$found;
    expect((grep { $_->{value} eq 'Süd' } @{$south->{name}{value}}), 'Süd');
}
else {
    my $reply = query("/content/folder[\@name='Payroll']/*");
    expect($reply->fault, 'a fault');
    expect($reply->faultcode =~ /Client$/, 'the code Client, got ' . $reply->faultcode);
    expect($reply->faultstring eq 'The content manager refused the request.', 'the text, got ' . $reply->faultstring);
    expect($reply->faultdetail->{exception}{errorCode} eq 'cmNoPermission', 'the code of the detail');
}
