<?php
// PHP's SoapClient as a rival: php session.php WSDL URL CALLS
// Prints the seconds that all calls took, the median call in microseconds, and the first object's name.
[, $wsdl, $url, $calls] = $argv;
$client = new SoapClient($wsdl, ['location' => $url, 'keep_alive' => true,
    'cache_wsdl' => WSDL_CACHE_NONE, 'features' => SOAP_SINGLE_ELEMENT_ARRAYS]);
$ask = fn () => $client->query("/content/folder[@name='Sales']/report[@name='Quarterly']",
    ['defaultName', 'searchPath', 'defaultDescription', 'hidden'], [(object) ['propName' => 'defaultName']], null);
for ($i = 0; $i < 100; ++$i) {
    $found = $ask();
}
$times = [];
$began = hrtime(true);
for ($i = 0; $i < $calls; ++$i) {
    $before = hrtime(true);
    $ask();
    $times[] = hrtime(true) - $before;
}
$all = hrtime(true) - $began;
sort($times);
printf("%.9f %.3f %s\n", $all / 1e9, $times[intdiv(count($times), 2)] / 1e3, $found[0]->defaultName->value);
