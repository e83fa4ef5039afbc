<?php
// PHP's SoapClient against the embedded bus: php client.php URL query|refused
require __DIR__ . '/types.php';

function expect(bool $holds, string $what): void
{
    if (!$holds) {
        fwrite(STDERR, "expected $what\n");
        exit(1);
    }
}

[, $url, $case] = $argv;
$client = new SoapClient(__DIR__ . '/../content.wsdl', ['location' => $url, 'classmap' => CLASSES,
    'cache_wsdl' => WSDL_CACHE_NONE, 'features' => SOAP_SINGLE_ELEMENT_ARRAYS, 'connection_timeout' => 10]);
$properties = ['defaultName', 'searchPath', 'hidden', 'name'];

if ($case === 'query') {
    $regions = "/content//folder[@name='Regions']";
    $found = $client->query("$regions | $regions/report", $properties,
        [(object) ['propName' => 'defaultName']], (object) ['maxObjects' => 10, 'schemaInfo' => false]);
    $classes = array_count_values(array_map('get_class', $found));
    expect($classes == ['folder' => 1, 'report' => 3], 'a folder and three reports, got ' . json_encode($classes));
    $names = array_map(fn ($object) => $object->defaultName->value, $found);
    expect(in_array('Ålesund & coast', $names, true), 'Ålesund & coast, got ' . implode(', ', $names));
    expect($found[0]->hidden->value === false, 'a boolean');
    foreach ($found as $object) {
        if ($object->defaultName->value === 'South') {
            expect(count($object->name->value) === 2, 'a name in two locales');
            expect(in_array('Süd', array_column($object->name->value, 'value'), true), 'Süd');
        }
    }
} else {
    try {
        $client->query("/content/folder[@name='Payroll']/*", $properties, null, null);
        expect(false, 'a fault');
    } catch (SoapFault $fault) {
        expect(str_ends_with($fault->faultcode, 'Client'), "the code Client, got {$fault->faultcode}");
        expect($fault->faultstring === 'The content manager refused the request.',
            "the text, got {$fault->faultstring}");
        expect($fault->detail->exception->errorCode === 'cmNoPermission',
            'the code of the detail, got ' . json_encode($fault->detail));
    }
}
