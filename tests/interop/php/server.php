<?php
// A content manager whose protocol code is PHP's SoapServer: php -S 127.0.0.1:PORT server.php
require __DIR__ . '/types.php';

class ContentManager
{
    public function query($searchPath, $properties, $sortBy, $options)
    {
        if ($searchPath === '/refused') {
            $item = (object) ['severity' => 'error', 'message' => (object) ['messageString' => 'ask for /content']];
            throw new SoapFault('Client', 'Refused: Größe & <more>', null, (object) ['exception' => $item]);
        }
        $result = [];
        foreach ($properties as $name) {
            $folder = new folder();
            $folder->defaultName = (object) ['value' => $name];
            $folder->displaySequence = (object) ['value' => $options->maxObjects];
            $folder->hidden = (object) ['value' => $options->schemaInfo];
            $result[] = typed($folder);
        }
        $result[] = null;
        $report = new report();
        $report->searchPath = (object) ['value' => $searchPath];
        $result[] = typed($report);
        return $result;
    }

    public function add($parentPath, $objects, $options)
    {
        if ($parentPath !== '/content' || $options->faultIfObjectReferenced !== false
            || $options->updateAction !== 'replace') {
            throw new SoapFault('Client', 'The parent or the options are not what was sent');
        }
        return array_map('typed', $objects);
    }

    public function delete($objects, $options)
    {
        if ($options !== null) {
            throw new SoapFault('Client', 'The options are not nil');
        }
        return count($objects);
    }
}

$server = new SoapServer(__DIR__ . '/../content.wsdl', ['classmap' => CLASSES, 'cache_wsdl' => WSDL_CACHE_NONE,
    'features' => SOAP_SINGLE_ELEMENT_ARRAYS]);
$server->setClass('ContentManager');
$server->handle();
