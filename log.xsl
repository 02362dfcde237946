<?xml version="1.0" encoding="utf-8"?>
<!--
  Shows a processing log to a person: in a browser, which finds this file by the log's xml-stylesheet instruction, and through
  "zelnor report". One page without scripts and without anything from outside.

  With the parameter "facts" set the result is the same matter as bare facts, from which the program makes text and JSON; so
  what a log says is decided here alone.

  A log holds whole messages, with the password that HMRC's gateway wants. Every text that comes from the log goes
  through the template "say", which hides it.
-->
<!DOCTYPE xsl:stylesheet [
  <!-- What an error is grouped by. A record of a validator and an error of HMRC's have the same element name and other children,
       so that each expression holds for both; the list that the error stands in comes first. -->
  <!ENTITY list "generate-id(ancestor::*[self::ValidationErrors or local-name() = 'ErrorResponse' or local-name() = 'GovTalkErrors'][1])">
  <!ENTITY by-employee "concat(&list;, '|', Employee, '|', EmployeeName, '|', substring-before(substring-after(*[local-name() = 'Location'], 'Employee['), ']'))">
  <!ENTITY by-field "concat(&list;, '|', FieldName, '|', *[local-name() = 'Number'])">
  <!ENTITY by-severity "concat(&list;, '|', Status)">
  <!-- The envelope's error that only says that HMRC's list follows. -->
  <!ENTITY only-announces "parent::*[local-name() = 'GovTalkErrors'] and *[local-name() = 'Number'] = '3001'
    and ../../../*[local-name() = 'Body']/*[local-name() = 'ErrorResponse']//*[local-name() = 'Error']">
  <!-- Whether a message's address is on this machine. One that only looks like it, with a name before the host or
    a longer name, is not. -->
  <!ENTITY host "substring-before(concat(translate(substring-after(@Url, '://'), '?#\', '///'), '/'), '/')">
  <!ENTITY host-name "translate(substring-before(concat(&host;, ':'), ':'), $upper, $lower)">
  <!ENTITY on-this-machine "not(contains(&host;, '@')) and (&host; = '[::1]' or starts-with(&host;, '[::1]:')
    or &host-name; = 'localhost' or starts-with(&host-name;, '127.') and translate(&host-name;, '0123456789', '') = '...')">
]>
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html" encoding="utf-8" indent="no" doctype-system="about:legacy-compat"/>

  <!-- By what the errors are grouped: employee, field or severity. -->
  <xsl:param name="sort"/>
  <xsl:param name="facts"/>
  <!-- How many employees of a message are shown; the log's file has them all. -->
  <xsl:param name="employees-shown" select="50"/>

  <xsl:variable name="upper" select="'ABCDEFGHIJKLMNOPQRSTUVWXYZ'"/>
  <xsl:variable name="lower" select="'abcdefghijklmnopqrstuvwxyz'"/>
  <xsl:variable name="mask" select="'&#x2022;&#x2022;&#x2022;&#x2022;&#x2022;&#x2022;'"/>

  <xsl:variable name="log" select="/Log"/>
  <xsl:variable name="records" select="$log/LogRecords/*"/>
  <xsl:variable name="messages" select="$log/SendLog/*"/>

  <!-- What the gateway wants for a password, wherever it stands. A short one would blot out half the page. -->
  <xsl:variable name="secrets" select="//*[translate(local-name(), 'IDAUTHENTICATION', 'idauthentication') = 'idauthentication']
    //*[translate(local-name(), 'VALUE', 'value') = 'value'][string-length(normalize-space(.)) &gt; 5]"/>

  <!-- ======== What became of it ======== -->

  <!-- The envelope that was sent or saved, for its figures and names. -->
  <xsl:variable name="submission" select="$log/Submission/*[last()]"/>
  <xsl:variable name="details" select="$submission/*[local-name() = 'Header']/*[local-name() = 'MessageDetails']"/>

  <!-- The gateway's last answer about the submission; the one to the request that closes the conversation is none. -->
  <xsl:variable name="answers" select="($log/SendLog/FromGateway/* | $log/LatestHMRCResponse/*)
    [local-name() = 'GovTalkMessage'][not(translate(*[local-name() = 'Header']/*[local-name() = 'MessageDetails']
      /*[local-name() = 'Function'], 'DELT', 'delt') = 'delete')]"/>
  <xsl:variable name="sent-answers" select="$answers[parent::FromGateway]"/>
  <xsl:variable name="answer" select="$sent-answers[last()] | $answers[not($sent-answers)][last()]"/>
  <xsl:variable name="qualifier" select="translate($answer/*[local-name() = 'Header']/*[local-name() = 'MessageDetails']
    /*[local-name() = 'Qualifier'], $upper, $lower)"/>

  <!-- The last record that tells an end. -->
  <xsl:variable name="verdict" select="string($records[
    starts-with(., 'Submission result: ') or starts-with(., 'Validation failed. Exiting Send')
    or starts-with(., 'User cancelled during Validation') or starts-with(., 'Internet connection not detected, exiting')
    or starts-with(., 'An error occurred while attempting to send the submission')
    or starts-with(., 'An error occurred while attempting to save the submission')
    or starts-with(., 'Submission saved to file') or starts-with(., 'Receipt from Gov Gateway')
    or starts-with(., 'Document submission completed successfully') or starts-with(., 'Cannot send document')
    or starts-with(., 'Send cancelled by user') or starts-with(., 'No document to send')
    or starts-with(., 'Error sending document') or starts-with(., 'Validation completed at')
    or starts-with(., 'Validation cancelled') or starts-with(., 'Submitting document to')][last()])"/>

  <!-- The last time that it was handed to the gateway, and whether nothing at all is known of what came of that. -->
  <xsl:variable name="handed" select="$records[starts-with(., 'Submitting document to')][last()]"/>
  <xsl:variable name="no-answer" select="starts-with($verdict, 'Submitting document to')
    and not($handed/following-sibling::*[starts-with(., 'Response received')])"/>

  <!-- How the last check ended. -->
  <xsl:variable name="last-check" select="$records[starts-with(., 'Beginning validation')][last()]"/>
  <xsl:variable name="since" select="$last-check/following-sibling::* | $records[not($last-check)]"/>
  <xsl:variable name="check-left-out" select="boolean($since[starts-with(., 'Validation is disabled')])"/>
  <xsl:variable name="check-failed" select="not($check-left-out) and boolean($since[contains(., 'alidation failed')])"/>

  <xsl:variable name="no-connection" select="boolean($answer//*[local-name() = 'Error'][*[local-name() = 'Number'] = '-9999'])"/>

  <xsl:variable name="refused-certificate" select="$no-connection and boolean($answer//*[local-name() = 'Error']
    [contains(*[local-name() = 'Text'], 'certificate')])"/>

  <xsl:variable name="outcome">
    <xsl:choose>
      <xsl:when test="starts-with($verdict, 'Submission result: Successful') or starts-with($verdict, 'Receipt from')">accepted</xsl:when>
      <xsl:when test="starts-with($verdict, 'Submission result: Pending')">pending</xsl:when>
      <xsl:when test="starts-with($verdict, 'Submission result: Connection Failed')">connection</xsl:when>
      <xsl:when test="starts-with($verdict, 'Internet connection')">connection</xsl:when>
      <xsl:when test="starts-with($verdict, 'Validation failed')">invalid</xsl:when>
      <xsl:when test="starts-with($verdict, 'User cancelled') or starts-with($verdict, 'Validation cancelled')">cancelled</xsl:when>
      <xsl:when test="starts-with($verdict, 'An error occurred')">error</xsl:when>
      <xsl:when test="starts-with($verdict, 'Submission saved') and $check-failed">saved-invalid</xsl:when>
      <xsl:when test="starts-with($verdict, 'Submission saved')">saved</xsl:when>
      <xsl:when test="$no-answer">unanswered</xsl:when>
      <xsl:when test="$no-connection or starts-with($verdict, 'Cannot send document. Maximum attempts')">connection</xsl:when>
      <xsl:when test="$qualifier = 'error'">refused</xsl:when>
      <xsl:when test="$qualifier = 'response'">accepted</xsl:when>
      <xsl:when test="starts-with($verdict, 'Submission result: ') or starts-with($verdict, 'Cannot send')
        or starts-with($verdict, 'Error sending') or starts-with($verdict, 'No document')">failed</xsl:when>
      <xsl:when test="$qualifier = 'acknowledgement' or starts-with($verdict, 'Document submission completed')">pending</xsl:when>
      <xsl:when test="starts-with($verdict, 'Submitting document to')">unanswered</xsl:when>
      <xsl:when test="starts-with($verdict, 'Send cancelled')">cancelled</xsl:when>
      <xsl:when test="starts-with($verdict, 'Validation completed') and $check-failed">invalid</xsl:when>
      <xsl:when test="starts-with($verdict, 'Validation completed')">checked</xsl:when>
      <xsl:otherwise>none</xsl:otherwise>
    </xsl:choose>
  </xsl:variable>

  <xsl:variable name="accepted-by-hmrc" select="$qualifier = 'response' or boolean($records[starts-with(., 'Receipt from')
    or starts-with(., 'Submission result: Successful')])"/>

  <!-- ok, bad, wait or plain: the colour, and nothing that isn't said in words as well. -->
  <xsl:variable name="tone">
    <xsl:choose>
      <xsl:when test="$outcome = 'accepted'">ok</xsl:when>
      <xsl:when test="$outcome = 'pending' or $outcome = 'cancelled' or $outcome = 'unanswered'">wait</xsl:when>
      <xsl:when test="$outcome = 'saved' or $outcome = 'checked' or $outcome = 'none'">plain</xsl:when>
      <xsl:otherwise>bad</xsl:otherwise>
    </xsl:choose>
  </xsl:variable>

  <xsl:variable name="is-test" select="$details/*[local-name() = 'GatewayTest'] = '1' or $log/@SubmissionMode = '2'
    or substring($details/*[local-name() = 'Class'], string-length($details/*[local-name() = 'Class']) - 3) = '-TIL'"/>

  <!-- Whether the messages went to a gateway on this machine, as in an application's own tests. -->
  <xsl:variable name="is-local" select="boolean($messages[self::ToGateway])
    and not($messages[self::ToGateway][not(&on-this-machine;)])"/>

  <!-- Who answers, at the beginning of a sentence and within one. -->
  <xsl:variable name="Who">
    <xsl:choose>
      <xsl:when test="$is-local">The gateway on this machine</xsl:when>
      <xsl:otherwise>HMRC</xsl:otherwise>
    </xsl:choose>
  </xsl:variable>
  <xsl:variable name="who">
    <xsl:choose>
      <xsl:when test="$is-local">the gateway on this machine</xsl:when>
      <xsl:otherwise>HMRC</xsl:otherwise>
    </xsl:choose>
  </xsl:variable>

  <!-- What the document itself tells of the employer and the year, for a log to which nobody told them. -->
  <xsl:variable name="section" select="$submission/*[local-name() = 'Body']/*/*[not(local-name() = 'IRheader')][1]"/>
  <xsl:variable name="references" select="$section/*[local-name() = 'EmpRefs']"/>
  <xsl:variable name="paye-ref">
    <xsl:if test="$references/*[local-name() = 'PayeRef']">
      <xsl:value-of select="concat($references/*[local-name() = 'OfficeNo'], '/', $references/*[local-name() = 'PayeRef'])"/>
    </xsl:if>
  </xsl:variable>
  <xsl:variable name="year">
    <xsl:choose>
      <xsl:when test="string($log/@SubmissionYear)"><xsl:value-of select="$log/@SubmissionYear"/></xsl:when>
      <xsl:otherwise><xsl:value-of select="$section/*[local-name() = 'RelatedTaxYear']"/></xsl:otherwise>
    </xsl:choose>
  </xsl:variable>

  <!-- What the thing is called within a sentence. -->
  <xsl:variable name="kind">
    <xsl:choose>
      <xsl:when test="$log/@SubmissionType = 'Polling Document'">submission</xsl:when>
      <xsl:when test="$log/@SubmissionType and not($log/@SubmissionType = 'Unspecified')">
        <xsl:value-of select="$log/@SubmissionType"/>
      </xsl:when>
      <xsl:otherwise>submission</xsl:otherwise>
    </xsl:choose>
  </xsl:variable>

  <!-- ======== The errors ======== -->

  <xsl:key name="by-employee" match="*[local-name() = 'Error'][not(&only-announces;)]" use="&by-employee;"/>
  <xsl:key name="by-field" match="*[local-name() = 'Error'][not(&only-announces;)]" use="&by-field;"/>
  <xsl:key name="by-severity" match="*[local-name() = 'Error'][not(&only-announces;)]" use="&by-severity;"/>

  <xsl:variable name="check-errors" select="$log/ValidationErrors//Error"/>

  <xsl:variable name="hmrc-errors" select="($answer/*[local-name() = 'Body']/*[local-name() = 'ErrorResponse']
    //*[local-name() = 'Error'] | $answer/*[local-name() = 'GovTalkDetails']/*[local-name() = 'GovTalkErrors']
    /*[local-name() = 'Error'])[not(&only-announces;)][not(*[local-name() = 'Number'] = '-9999')]"/>

  <!-- Errors that nobody can put right in the document. -->
  <xsl:variable name="no-fault" select="not($hmrc-errors[not(*[local-name() = 'Number'] = '1000' or *[local-name() = 'Number'] = '2000'
    or *[local-name() = 'Number'] = '2005' or *[local-name() = 'Number'] = '3000')])"/>

  <!-- Errors of an earlier check in the same session stay in the log when a later one passes. -->
  <xsl:variable name="check-is-past" select="not($check-failed)"/>

  <xsl:variable name="order">
    <xsl:variable name="wanted">
      <xsl:choose>
        <xsl:when test="$sort"><xsl:value-of select="translate($sort, $upper, $lower)"/></xsl:when>
        <xsl:otherwise><xsl:value-of select="translate($log/ReportSortOrder, $upper, $lower)"/></xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:choose>
      <xsl:when test="contains($wanted, 'field')">field</xsl:when>
      <xsl:when test="contains($wanted, 'severity')">severity</xsl:when>
      <xsl:otherwise>employee</xsl:otherwise>
    </xsl:choose>
  </xsl:variable>

  <!-- ======== Words ======== -->

  <xsl:template name="plural">
    <xsl:param name="count"/>
    <xsl:param name="one"/>
    <xsl:value-of select="concat(format-number($count, '#,##0'), ' ', $one)"/>
    <xsl:if test="$count != 1">s</xsl:if>
  </xsl:template>

  <!-- "the 20 errors", "the error" -->
  <xsl:template name="errors">
    <xsl:param name="errors"/>
    <xsl:choose>
      <xsl:when test="count($errors) = 1">error</xsl:when>
      <xsl:otherwise><xsl:value-of select="concat(format-number(count($errors), '#,##0'), ' errors')"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="headline">
    <xsl:variable name="hmrc">
      <xsl:choose>
        <xsl:when test="$is-local">A gateway on this machine</xsl:when>
        <xsl:when test="$is-test">HMRC&#8217;s test service</xsl:when>
        <xsl:otherwise>HMRC</xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:choose>
      <xsl:when test="$outcome = 'accepted'"><xsl:value-of select="concat($hmrc, ' has accepted the ', $kind)"/></xsl:when>
      <xsl:when test="$outcome = 'pending'"><xsl:value-of select="concat($hmrc, ' has the ', $kind, ' and has not answered yet')"/></xsl:when>
      <xsl:when test="$outcome = 'refused' and $no-fault"><xsl:value-of select="concat($hmrc, ' has answered with an error')"/></xsl:when>
      <xsl:when test="$outcome = 'refused'"><xsl:value-of select="concat($hmrc, ' has refused the ', $kind)"/></xsl:when>
      <xsl:when test="$outcome = 'connection'"><xsl:value-of select="concat($Who, ' could not be reached')"/></xsl:when>
      <xsl:when test="$outcome = 'unanswered'"><xsl:value-of select="concat('The ', $kind, ' may have been sent: no answer is recorded')"/></xsl:when>
      <xsl:when test="$outcome = 'invalid'">The check found errors; nothing was sent</xsl:when>
      <xsl:when test="$outcome = 'cancelled'"><xsl:value-of select="concat('The ', $kind, ' was cancelled')"/></xsl:when>
      <xsl:when test="$outcome = 'error' and $accepted-by-hmrc">
        <xsl:value-of select="concat($hmrc, ' has accepted the ', $kind, ', but something failed afterwards')"/>
      </xsl:when>
      <xsl:when test="$outcome = 'error'">Something failed on the way</xsl:when>
      <xsl:when test="$outcome = 'failed'"><xsl:value-of select="concat('The ', $kind, ' could not be sent')"/></xsl:when>
      <xsl:when test="$outcome = 'saved'"><xsl:value-of select="concat('The ', $kind, ' was saved; it has not been sent')"/></xsl:when>
      <xsl:when test="$outcome = 'saved-invalid'">
        <xsl:value-of select="concat('The ', $kind, ' was saved with errors; it has not been sent')"/>
      </xsl:when>
      <xsl:when test="$outcome = 'checked'"><xsl:value-of select="concat('The ', $kind, ' was checked; it has not been sent')"/></xsl:when>
      <xsl:otherwise>Nothing was sent or saved</xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- What to do now. -->
  <xsl:template name="advice">
    <xsl:choose>
      <xsl:when test="$outcome = 'accepted' and $is-local">This was a rehearsal: nothing reached HMRC.</xsl:when>
      <xsl:when test="$outcome = 'accepted' and $is-test">This was a test. HMRC does not count it as a submission: send it live when you are ready.</xsl:when>
      <xsl:when test="$outcome = 'accepted'">There is nothing more to do. Keep this page, with its IRmark, as your receipt.</xsl:when>
      <xsl:when test="$outcome = 'pending'">Do not send it again. Ask for the answer later, with the correlation ID below.</xsl:when>
      <xsl:when test="$outcome = 'refused' and $no-fault">The fault need not lie in what you sent. See below what <xsl:value-of select="$who"/> says.</xsl:when>
      <xsl:when test="$outcome = 'refused'">
        <xsl:value-of select="$Who"/>
        <xsl:text> has not taken any of it. Put right the </xsl:text>
        <xsl:call-template name="errors"><xsl:with-param name="errors" select="$hmrc-errors"/></xsl:call-template>
        <xsl:text> below, then send it again.</xsl:text>
      </xsl:when>
      <xsl:when test="$outcome = 'connection' and string($log/CorrelationID)">The connection was lost after <xsl:value-of select="$who"/> had received it. Do not send it again: ask for the answer later, with the correlation ID below.</xsl:when>
      <xsl:when test="$outcome = 'connection' and $messages[self::ToGateway]">It was sent, but no usable answer came. Before you send it again, find out whether <xsl:value-of select="$who"/> has it.</xsl:when>
      <xsl:when test="$outcome = 'connection' and $handed and not($refused-certificate)">
        <xsl:text>Nothing is known to have arrived. Look to the internet connection and the date of this computer, then send it again. Only if the connection stood at </xsl:text>
        <xsl:call-template name="clock"><xsl:with-param name="stamp" select="$handed/@TimeStamp"/></xsl:call-template>
        <xsl:text> and broke off after that, HMRC may have it: then look into your PAYE Online account first.</xsl:text>
      </xsl:when>
      <xsl:when test="$outcome = 'unanswered'">
        <xsl:text>It was handed to the gateway at </xsl:text>
        <xsl:call-template name="clock"><xsl:with-param name="stamp" select="$handed/@TimeStamp"/></xsl:call-template>
        <xsl:text> on </xsl:text>
        <xsl:call-template name="day"><xsl:with-param name="stamp" select="$handed/@TimeStamp"/></xsl:call-template>
        <xsl:text>, and no answer is recorded: HMRC may have it. Do not send it again before you have asked HMRC, for instance in your PAYE Online account.</xsl:text>
      </xsl:when>
      <xsl:when test="$outcome = 'connection'">Nothing is known to have arrived. Look to the internet connection and the date of this computer, then send it again.</xsl:when>
      <xsl:when test="$outcome = 'invalid' or $outcome = 'saved-invalid'">
        <xsl:text>Put right the </xsl:text>
        <xsl:call-template name="errors"><xsl:with-param name="errors" select="$check-errors"/></xsl:call-template>
        <xsl:text> below, then try again.</xsl:text>
      </xsl:when>
      <xsl:when test="$outcome = 'cancelled' and $messages[self::ToGateway]">It was cancelled after something had been sent. Before you send it again, see below what <xsl:value-of select="$who"/> received.</xsl:when>
      <xsl:when test="$outcome = 'cancelled'">Nothing was sent. Send it again when you are ready.</xsl:when>
      <xsl:when test="$outcome = 'error'">
        <xsl:call-template name="say"><xsl:with-param name="text" select="$verdict"/></xsl:call-template>
        <xsl:if test="$accepted-by-hmrc"> Do not send it again.</xsl:if>
      </xsl:when>
      <xsl:when test="$outcome = 'failed'">
        <xsl:call-template name="say"><xsl:with-param name="text" select="$verdict"/></xsl:call-template>
        <xsl:text> The steps below tell how far it came.</xsl:text>
      </xsl:when>
      <xsl:when test="$outcome = 'saved' and $check-left-out">It was not checked for errors.</xsl:when>
      <xsl:when test="$outcome = 'saved'">The check found no errors.</xsl:when>
      <xsl:when test="$outcome = 'checked'">No errors were found.</xsl:when>
    </xsl:choose>
  </xsl:template>

  <!-- An error number of the gateway, for someone who doesn't know it; empty for one that speaks for itself. -->
  <xsl:template name="explain">
    <xsl:param name="number"/>
    <xsl:choose>
      <xsl:when test="$number = '-9999'">There was no usable connection to <xsl:value-of select="$who"/>.</xsl:when>
      <xsl:when test="$number = '1000'">HMRC&#8217;s gateway had a failure of its own. Send it again later.</xsl:when>
      <xsl:when test="$number = '1001' or $number = '1002' or $number = '1020' or $number = '1035' or $number = '1042'">The message was not in the form that HMRC&#8217;s gateway takes. This is for your software&#8217;s supplier.</xsl:when>
      <xsl:when test="$number = '1040' or $number = '1046'">The user ID or the password is not the one that belongs to this employer&#8217;s PAYE reference.</xsl:when>
      <xsl:when test="$number = '2000'">HMRC has no record of this correlation ID: the answer was fetched and closed before, or it is too long ago.</xsl:when>
      <xsl:when test="$number = '2001'">The document is too large for HMRC&#8217;s gateway. Send it in parts or compressed.</xsl:when>
      <xsl:when test="$number = '2002'">The document holds less than HMRC needs at the least.</xsl:when>
      <xsl:when test="$number = '2005'">HMRC&#8217;s own systems did not answer the gateway in time.</xsl:when>
      <xsl:when test="$number = '2021'">The IRmark does not fit the document: it was changed after it was marked. Save or send it again from your software.</xsl:when>
      <xsl:when test="$number = '2022'">The document carries no IRmark. Save or send it again from your software.</xsl:when>
      <xsl:when test="$number = '3000'">HMRC could not process it this time. Send it again.</xsl:when>
      <xsl:when test="$number = '3001'">It breaks HMRC&#8217;s rules for such a submission.</xsl:when>
    </xsl:choose>
  </xsl:template>

  <!-- ======== Text that comes from the log ======== -->

  <xsl:template name="say">
    <xsl:param name="text"/>
    <xsl:variable name="low" select="translate($text, $upper, $lower)"/>
    <xsl:variable name="secret" select="$secrets[contains($text, normalize-space(.))][1]"/>
    <xsl:choose>
      <!-- A message as text within a text: no telling where its password ends. -->
      <xsl:when test="contains($low, 'idauthentication') or contains($low, '&lt;value') or contains($low, 'lt;value')">(left out, since it may hold a password)</xsl:when>
      <!-- A replacement takes one level of the processor's stack, which has an end. -->
      <xsl:when test="$secret and string-length($text) &gt; 6000">(left out, since it holds a password)</xsl:when>
      <xsl:when test="$secret">
        <xsl:call-template name="say">
          <xsl:with-param name="text" select="substring-before($text, normalize-space($secret))"/>
        </xsl:call-template>
        <xsl:value-of select="$mask"/>
        <xsl:call-template name="say">
          <xsl:with-param name="text" select="substring-after($text, normalize-space($secret))"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$text"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- An address without a user's name, a password or a query. -->
  <xsl:template name="say-address">
    <xsl:param name="url"/>
    <xsl:variable name="bare">
      <xsl:choose>
        <xsl:when test="contains($url, '?')"><xsl:value-of select="substring-before($url, '?')"/></xsl:when>
        <xsl:otherwise><xsl:value-of select="$url"/></xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:call-template name="say">
      <xsl:with-param name="text">
        <xsl:choose>
          <xsl:when test="contains($bare, '@')">
            <xsl:value-of select="concat(substring-before($bare, '://'), '://', $mask, '@')"/>
            <xsl:call-template name="after-last">
              <xsl:with-param name="text" select="substring($bare, 1, 2000)"/>
              <xsl:with-param name="mark" select="'@'"/>
            </xsl:call-template>
          </xsl:when>
          <xsl:otherwise><xsl:value-of select="$bare"/></xsl:otherwise>
        </xsl:choose>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="after-last">
    <xsl:param name="text"/>
    <xsl:param name="mark"/>
    <xsl:choose>
      <xsl:when test="contains($text, $mark)">
        <xsl:call-template name="after-last">
          <xsl:with-param name="text" select="substring-after($text, $mark)"/>
          <xsl:with-param name="mark" select="$mark"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$text"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The mark in groups of four; what is longer than a mark is none. -->
  <xsl:template name="groups">
    <xsl:param name="text"/>
    <xsl:if test="$text and string-length($text) &lt; 100">
      <span><xsl:value-of select="substring($text, 1, 4)"/></span>
      <xsl:call-template name="groups">
        <xsl:with-param name="text" select="substring($text, 5)"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- ======== Times ======== -->

  <!-- The time of day of either kind of stamp, hh:nn:ss. -->
  <xsl:template name="clock">
    <xsl:param name="stamp"/>
    <xsl:value-of select="substring($stamp, 12, 8)"/>
  </xsl:template>

  <xsl:template name="day">
    <xsl:param name="stamp"/>
    <xsl:variable name="day">
      <xsl:choose>
        <xsl:when test="substring($stamp, 5, 1) = '-'"><xsl:value-of select="concat(substring($stamp, 9, 2), substring($stamp, 6, 2), substring($stamp, 1, 4))"/></xsl:when>
        <xsl:otherwise><xsl:value-of select="concat(substring($stamp, 1, 2), substring($stamp, 4, 2), substring($stamp, 7, 4))"/></xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:variable name="month" select="number(substring($day, 3, 2))"/>
    <xsl:choose>
      <xsl:when test="$month &gt;= 1 and $month &lt;= 12">
        <xsl:value-of select="number(substring($day, 1, 2))"/>
        <xsl:text> </xsl:text>
        <xsl:value-of select="normalize-space(substring('January  February March    April    May      June     July     August   SeptemberOctober  November December ', ($month - 1) * 9 + 1, 9))"/>
        <xsl:value-of select="concat(' ', substring($day, 5, 4))"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="substring($stamp, 1, 10)"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="moment">
    <xsl:param name="stamp"/>
    <xsl:if test="string($stamp)">
      <xsl:call-template name="day"><xsl:with-param name="stamp" select="$stamp"/></xsl:call-template>
      <xsl:text>, </xsl:text>
      <xsl:call-template name="clock"><xsl:with-param name="stamp" select="$stamp"/></xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- Seconds between two stamps of one kind, over one midnight at the most; empty where that makes no sense. -->
  <xsl:template name="seconds">
    <xsl:param name="from"/>
    <xsl:param name="to"/>
    <xsl:variable name="start" select="substring($from, 12, 2) * 3600 + substring($from, 15, 2) * 60 + substring($from, 18, 2)"/>
    <xsl:variable name="end" select="substring($to, 12, 2) * 3600 + substring($to, 15, 2) * 60 + substring($to, 18, 2)"/>
    <xsl:choose>
      <xsl:when test="$end &gt;= $start and substring($from, 1, 10) = substring($to, 1, 10)"><xsl:value-of select="$end - $start"/></xsl:when>
      <xsl:when test="$end &lt; $start and substring($from, 1, 10) != substring($to, 1, 10)"><xsl:value-of select="$end - $start + 86400"/></xsl:when>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="duration">
    <xsl:param name="seconds"/>
    <xsl:choose>
      <xsl:when test="not(string($seconds))"/>
      <xsl:when test="$seconds = 0">under 1 s</xsl:when>
      <xsl:when test="$seconds &lt; 60"><xsl:value-of select="concat($seconds, ' s')"/></xsl:when>
      <xsl:when test="$seconds &lt; 3600"><xsl:value-of select="concat(floor($seconds div 60), ' min ', $seconds mod 60, ' s')"/></xsl:when>
      <xsl:otherwise><xsl:value-of select="concat(floor($seconds div 3600), ' h ', floor($seconds mod 3600 div 60), ' min')"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- ======== One error: employee, field, value, what, severity, code ======== -->

  <xsl:template match="*" mode="employee">
    <xsl:variable name="at" select="substring-before(substring-after(*[local-name() = 'Location'], 'Employee['), ']')"/>
    <xsl:choose>
      <xsl:when test="EmployeeName and not(EmployeeName = 'N/A')">
        <xsl:call-template name="say"><xsl:with-param name="text" select="EmployeeName"/></xsl:call-template>
        <xsl:if test="string(EmployeeCode) and not(EmployeeCode = 'N/A')">
          <xsl:text> (</xsl:text>
          <xsl:call-template name="say"><xsl:with-param name="text" select="EmployeeCode"/></xsl:call-template>
          <xsl:text>)</xsl:text>
        </xsl:if>
      </xsl:when>
      <xsl:when test="$at">
        <xsl:variable name="person" select="$submission/*[local-name() = 'Body']/*/*/*[local-name() = 'Employee'][position() = $at]
          /*[local-name() = 'EmployeeDetails']/*[local-name() = 'Name']"/>
        <xsl:if test="$person">
          <xsl:call-template name="say"><xsl:with-param name="text" select="$person/*[local-name() = 'Sur']"/></xsl:call-template>
          <xsl:for-each select="$person/*[local-name() = 'Fore']">
            <xsl:value-of select="substring(', ', 1 + (position() &gt; 1))"/>
            <xsl:call-template name="say"><xsl:with-param name="text" select="."/></xsl:call-template>
          </xsl:for-each>
          <xsl:text> (employee </xsl:text>
          <xsl:call-template name="say"><xsl:with-param name="text" select="$at"/></xsl:call-template>
          <xsl:text>)</xsl:text>
        </xsl:if>
        <xsl:if test="not($person)">
          <xsl:text>Employee </xsl:text>
          <xsl:call-template name="say"><xsl:with-param name="text" select="$at"/></xsl:call-template>
        </xsl:if>
      </xsl:when>
      <xsl:otherwise>The submission as a whole</xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="*" mode="field">
    <xsl:choose>
      <xsl:when test="FieldName">
        <xsl:call-template name="say"><xsl:with-param name="text" select="FieldName"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise>
        <!-- The last step of the path, without prefix and position. -->
        <xsl:variable name="step">
          <xsl:call-template name="after-last">
            <xsl:with-param name="text" select="substring(*[local-name() = 'Location'], 1, 2000)"/>
            <xsl:with-param name="mark" select="'/'"/>
          </xsl:call-template>
        </xsl:variable>
        <xsl:variable name="name">
          <xsl:call-template name="after-last">
            <xsl:with-param name="text" select="string($step)"/>
            <xsl:with-param name="mark" select="':'"/>
          </xsl:call-template>
        </xsl:variable>
        <!-- The whole is no field. -->
        <xsl:if test="not(starts-with($name, 'GovTalkMessage') or starts-with($name, 'Body') or starts-with($name, 'IRenvelope'))">
          <xsl:call-template name="say">
            <xsl:with-param name="text">
              <xsl:call-template name="words-of">
                <xsl:with-param name="name" select="substring(substring-before(concat($name, '['), '['), 1, 100)"/>
              </xsl:call-template>
            </xsl:with-param>
          </xsl:call-template>
        </xsl:if>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- An element's name with blanks between its words: TaxCode as Tax Code. -->
  <xsl:template name="words-of">
    <xsl:param name="name"/>
    <xsl:variable name="one" select="substring($name, 1, 1)"/>
    <xsl:variable name="next" select="substring($name, 2, 1)"/>
    <xsl:value-of select="$one"/>
    <xsl:if test="$next">
      <xsl:if test="contains($lower, $one) and contains($upper, $next)"><xsl:text> </xsl:text></xsl:if>
      <xsl:call-template name="words-of"><xsl:with-param name="name" select="substring($name, 2)"/></xsl:call-template>
    </xsl:if>
  </xsl:template>

  <xsl:template match="*" mode="value">
    <xsl:variable name="about" select="translate(concat(FieldName, ' ', Source), $upper, $lower)"/>
    <xsl:choose>
      <xsl:when test="not(string(FieldValue))"/>
      <xsl:when test="contains($about, 'password')"><xsl:value-of select="$mask"/></xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="say"><xsl:with-param name="text" select="FieldValue"/></xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="*" mode="what">
    <xsl:variable name="meaning">
      <xsl:call-template name="explain"><xsl:with-param name="number" select="*[local-name() = 'Number']"/></xsl:call-template>
    </xsl:variable>
    <xsl:call-template name="say">
      <xsl:with-param name="text" select="concat(Description, *[local-name() = 'Text'])"/>
    </xsl:call-template>
    <xsl:if test="string($meaning)">
      <xsl:variable name="text" select="normalize-space(*[local-name() = 'Text'])"/>
      <xsl:if test="$text and not(substring($text, string-length($text)) = '.')">.</xsl:if>
      <xsl:value-of select="concat(' ', $meaning)"/>
    </xsl:if>
  </xsl:template>

  <xsl:template match="*" mode="severity">
    <xsl:choose>
      <xsl:when test="Status = 'Information' or Status = 'Minor' or Status = 'Warning'"><xsl:value-of select="Status"/></xsl:when>
      <xsl:otherwise>Critical</xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="*" mode="code">
    <xsl:call-template name="say">
      <xsl:with-param name="text" select="concat(Code, *[local-name() = 'Number'])"/>
    </xsl:call-template>
  </xsl:template>

  <!-- ======== One exchanged message in words ======== -->

  <xsl:template match="ToGateway | FromGateway" mode="words">
    <xsl:variable name="head" select="*/*[local-name() = 'Header']/*[local-name() = 'MessageDetails']"/>
    <xsl:variable name="says" select="translate($head/*[local-name() = 'Qualifier'], $upper, $lower)"/>
    <xsl:variable name="does" select="translate($head/*[local-name() = 'Function'], $upper, $lower)"/>
    <xsl:variable name="body" select="*/*[local-name() = 'Body']"/>
    <xsl:variable name="errors" select="*/*[local-name() = 'GovTalkDetails']/*[local-name() = 'GovTalkErrors']/*[local-name() = 'Error']
      | $body/*[local-name() = 'ErrorResponse']/*[local-name() = 'Error']"/>
    <xsl:choose>
      <xsl:when test="self::ToGateway and $says = 'request' and $does = 'delete'">Told <xsl:value-of select="$who"/> that its answer has arrived, which closes the conversation</xsl:when>
      <xsl:when test="self::ToGateway and ($says = 'poll' or not($body/*))"><xsl:value-of select="concat('Asked ', $who, ' for its answer')"/></xsl:when>
      <xsl:when test="self::ToGateway"><xsl:value-of select="concat('Sent the ', $kind, ' to ', $who)"/></xsl:when>
      <xsl:when test="$says = 'acknowledgement'">
        <xsl:value-of select="concat($Who, ' has received it; the answer is not ready')"/>
        <xsl:variable name="wait" select="$head/*[local-name() = 'ResponseEndPoint']/@PollInterval"/>
        <xsl:if test="number($wait) &gt; 0"><xsl:value-of select="concat(', ask again in ', number($wait), ' s')"/></xsl:if>
      </xsl:when>
      <xsl:when test="$says = 'response' and $does = 'delete'"><xsl:value-of select="concat($Who, ' has closed the conversation')"/></xsl:when>
      <xsl:when test="$says = 'response'"><xsl:value-of select="concat($Who, ' has accepted it')"/></xsl:when>
      <xsl:when test="$errors[*[local-name() = 'Number'] = '-9999']">No usable answer: the connection failed</xsl:when>
      <xsl:when test="$says = 'error' and $body/*[local-name() = 'ErrorResponse']">
        <xsl:value-of select="concat($Who, ' has refused it, for ')"/>
        <xsl:call-template name="plural">
          <xsl:with-param name="count" select="count($body/*[local-name() = 'ErrorResponse']/*[local-name() = 'Error'])"/>
          <xsl:with-param name="one" select="'error'"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:when test="$says = 'error' and $is-local">The gateway on this machine has refused the message</xsl:when>
      <xsl:when test="$says = 'error'">HMRC&#8217;s gateway has refused the message</xsl:when>
      <xsl:otherwise>An answer of a kind that this page does not know</xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- What an answer says beyond that: HMRC's own texts, and the meaning of its numbers. -->
  <xsl:template match="FromGateway" mode="more">
    <xsl:for-each select="*/*[local-name() = 'Body']/*[local-name() = 'SuccessResponse']
      //*[local-name() = 'Message'][not(*)][string(.)]">
      <p class="quote"><xsl:value-of select="concat($Who, ': ')"/>
        <xsl:call-template name="say"><xsl:with-param name="text" select="."/></xsl:call-template></p>
    </xsl:for-each>
    <xsl:for-each select="*/*[local-name() = 'GovTalkDetails']/*[local-name() = 'GovTalkErrors']/*[local-name() = 'Error']">
      <p class="quote">
        <xsl:text>Error </xsl:text>
        <xsl:apply-templates select="." mode="code"/>
        <xsl:text>: </xsl:text>
        <xsl:apply-templates select="." mode="what"/>
      </p>
    </xsl:for-each>
  </xsl:template>

  <!-- The time that an answer took, from the message before it. -->
  <xsl:template match="ToGateway | FromGateway" mode="seconds">
    <xsl:variable name="before" select="preceding-sibling::*[1]/@TimeStamp"/>
    <xsl:if test="$before">
      <xsl:call-template name="seconds">
        <xsl:with-param name="from" select="$before"/>
        <xsl:with-param name="to" select="@TimeStamp"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- ======== The page ======== -->

  <xsl:template match="/">
    <xsl:choose>
      <xsl:when test="$facts"><xsl:call-template name="facts"/></xsl:when>
      <xsl:otherwise><xsl:call-template name="page"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="title">
    <xsl:choose>
      <xsl:when test="$kind = 'submission' and $log/@SubmissionType = 'Polling Document'">Answer to a submission</xsl:when>
      <xsl:when test="$kind = 'submission'">Payroll submission</xsl:when>
      <xsl:otherwise><xsl:call-template name="say"><xsl:with-param name="text" select="$kind"/></xsl:call-template></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="page">
    <xsl:variable name="title"><xsl:call-template name="title"/></xsl:variable>
    <xsl:variable name="headline"><xsl:call-template name="headline"/></xsl:variable>
    <xsl:variable name="advice"><xsl:call-template name="advice"/></xsl:variable>
    <html lang="en-GB">
      <head>
        <meta name="viewport" content="width=device-width, initial-scale=1"/>
        <meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'"/>
        <meta name="referrer" content="no-referrer"/>
        <meta name="robots" content="noindex"/>
        <title><xsl:value-of select="concat($headline, ' - ', $title)"/></title>
        <xsl:call-template name="style"/>
      </head>
      <body>
        <header>
          <h1><xsl:value-of select="$title"/></h1>
          <p>
            <xsl:if test="$log/@Company and not($log/@Company = 'Unspecified')">
              <xsl:call-template name="say"><xsl:with-param name="text" select="$log/@Company"/></xsl:call-template>
              <xsl:text>, </xsl:text>
            </xsl:if>
            <xsl:if test="not($log/@Company) or $log/@Company = 'Unspecified'">
              <xsl:call-template name="say"><xsl:with-param name="text" select="string($paye-ref)"/></xsl:call-template>
              <xsl:if test="string($paye-ref)">, </xsl:if>
            </xsl:if>
            <xsl:call-template name="moment"><xsl:with-param name="stamp" select="$records[1]/@TimeStamp"/></xsl:call-template>
          </p>
        </header>
        <main>
          <section class="outcome {$tone}" aria-labelledby="outcome">
            <h2 id="outcome"><xsl:value-of select="$headline"/></h2>
            <xsl:if test="string($advice)"><p><xsl:value-of select="$advice"/></p></xsl:if>
          </section>
          <xsl:call-template name="contents"/>
          <xsl:call-template name="errors-of-hmrc"/>
          <xsl:call-template name="errors-of-check"/>
          <xsl:call-template name="submission"/>
          <xsl:call-template name="mark"/>
          <xsl:call-template name="exchange"/>
          <xsl:call-template name="timeline"/>
        </main>
        <footer>
          <p>
            <xsl:text>Made from a processing log. It holds data of employees: treat it like the payroll itself. Passwords are never shown.</xsl:text>
            <xsl:if test="string($log/LastReportRunDate)">
              <xsl:text> Last reported: </xsl:text>
              <xsl:call-template name="say"><xsl:with-param name="text" select="$log/LastReportRunDate"/></xsl:call-template>
              <xsl:text>.</xsl:text>
            </xsl:if>
          </p>
        </footer>
      </body>
    </html>
  </xsl:template>

  <xsl:template name="contents">
    <nav aria-label="On this page">
      <ul>
        <xsl:if test="$hmrc-errors"><li><a href="#hmrc">Errors from <xsl:value-of select="$who"/> (<xsl:value-of select="count($hmrc-errors)"/>)</a></li></xsl:if>
        <xsl:if test="$check-errors"><li><a href="#check">Errors of the check (<xsl:value-of select="count($check-errors)"/>)</a></li></xsl:if>
        <li><a href="#submission">Submission</a></li>
        <xsl:if test="string($base32)"><li><a href="#irmark">IRmark</a></li></xsl:if>
        <xsl:if test="$messages or $log/Submission/*"><li><a href="#messages">Messages</a></li></xsl:if>
        <xsl:if test="$records"><li><a href="#timeline">What happened when</a></li></xsl:if>
      </ul>
    </nav>
  </xsl:template>

  <xsl:template name="row">
    <xsl:param name="label"/>
    <xsl:param name="value"/>
    <xsl:if test="string($value) and not(string($value) = 'Unspecified')">
      <div>
        <dt><xsl:value-of select="$label"/></dt>
        <dd><xsl:call-template name="say"><xsl:with-param name="text" select="string($value)"/></xsl:call-template></dd>
      </div>
    </xsl:if>
  </xsl:template>

  <xsl:template name="mode">
    <xsl:value-of select="$log/@SubmissionModeDescr"/>
    <xsl:if test="$is-test"> (a test: HMRC does not count it)</xsl:if>
  </xsl:template>

  <xsl:template name="submission">
    <section aria-labelledby="submission">
      <h2 id="submission">The submission</h2>
      <dl>
        <xsl:call-template name="row">
          <xsl:with-param name="label" select="'Company'"/>
          <xsl:with-param name="value" select="$log/@Company"/>
        </xsl:call-template>
        <xsl:call-template name="row">
          <xsl:with-param name="label" select="'PAYE reference'"/>
          <xsl:with-param name="value" select="$paye-ref"/>
        </xsl:call-template>
        <xsl:call-template name="row">
          <xsl:with-param name="label" select="'Made by'"/>
          <xsl:with-param name="value" select="$log/@Operator"/>
        </xsl:call-template>
        <xsl:call-template name="row">
          <xsl:with-param name="label" select="'Kind'"/>
          <xsl:with-param name="value" select="$log/@SubmissionType"/>
        </xsl:call-template>
        <xsl:call-template name="row">
          <xsl:with-param name="label" select="'Mode'"/>
          <xsl:with-param name="value"><xsl:call-template name="mode"/></xsl:with-param>
        </xsl:call-template>
        <xsl:call-template name="row">
          <xsl:with-param name="label" select="'Tax year'"/>
          <xsl:with-param name="value" select="$year"/>
        </xsl:call-template>
        <xsl:call-template name="row">
          <xsl:with-param name="label" select="'Periods'"/>
          <xsl:with-param name="value" select="$log/SubmissionPeriods"/>
        </xsl:call-template>
        <xsl:call-template name="row">
          <xsl:with-param name="label" select="'Correlation ID'"/>
          <xsl:with-param name="value" select="$log/CorrelationID"/>
        </xsl:call-template>
        <xsl:if test="count($records) &gt; 1">
          <xsl:call-template name="row">
            <xsl:with-param name="label" select="'Took'"/>
            <xsl:with-param name="value"><xsl:call-template name="whole"/></xsl:with-param>
          </xsl:call-template>
        </xsl:if>
      </dl>
    </section>
  </xsl:template>

  <!-- From the first record to the last. -->
  <xsl:template name="whole">
    <xsl:call-template name="duration">
      <xsl:with-param name="seconds">
        <xsl:call-template name="seconds">
          <xsl:with-param name="from" select="$records[1]/@TimeStamp"/>
          <xsl:with-param name="to" select="$records[last()]/@TimeStamp"/>
        </xsl:call-template>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- The mark: the log's, or where a session only saved, that of its document, in both forms. -->
  <xsl:variable name="document-mark" select="normalize-space($submission//*[local-name() = 'IRheader']/*[local-name() = 'IRmark'])"/>
  <xsl:variable name="base64">
    <xsl:call-template name="say">
      <xsl:with-param name="text">
        <xsl:choose>
          <xsl:when test="string($log/IRmark/Base64IRMark)"><xsl:value-of select="$log/IRmark/Base64IRMark"/></xsl:when>
          <xsl:otherwise><xsl:value-of select="$document-mark"/></xsl:otherwise>
        </xsl:choose>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:variable>
  <xsl:variable name="base32">
    <xsl:choose>
      <xsl:when test="string($log/IRmark/Base32IRMark)">
        <xsl:call-template name="say"><xsl:with-param name="text" select="string($log/IRmark/Base32IRMark)"/></xsl:call-template>
      </xsl:when>
      <!-- 20 bytes are 27 digits of Base64 and one "=". -->
      <xsl:when test="string-length($base64) = 28">
        <xsl:call-template name="base32">
          <xsl:with-param name="text" select="string($base64)"/>
        </xsl:call-template>
      </xsl:when>
    </xsl:choose>
  </xsl:variable>

  <!-- Base64 as Base32, from the left: a carry of less than five bits and its value go from digit to digit. -->
  <xsl:template name="base32">
    <xsl:param name="text"/>
    <xsl:param name="bits" select="0"/>
    <xsl:param name="carry" select="0"/>
    <xsl:variable name="digit" select="substring($text, 1, 1)"/>
    <xsl:if test="$digit and $digit != '='">
      <xsl:variable name="value" select="$carry * 64
        + string-length(substring-before('ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/', $digit))"/>
      <xsl:variable name="more" select="$bits + 6"/>
      <!-- 6 to 10 bits give one digit, or two when they are 10. -->
      <xsl:variable name="first-unit" select="1 * ($more = 6) * 2 + 1 * ($more = 7) * 4 + 1 * ($more = 8) * 8 + 1 * ($more = 9) * 16
        + 1 * ($more = 10) * 32"/>
      <xsl:variable name="first" select="floor($value div $first-unit)"/>
      <xsl:variable name="rest" select="$value mod $first-unit"/>
      <xsl:value-of select="substring('ABCDEFGHIJKLMNOPQRSTUVWXYZ234567', $first + 1, 1)"/>
      <xsl:if test="$more = 10"><xsl:value-of select="substring('ABCDEFGHIJKLMNOPQRSTUVWXYZ234567', $rest + 1, 1)"/></xsl:if>
      <xsl:call-template name="base32">
        <xsl:with-param name="text" select="substring($text, 2)"/>
        <xsl:with-param name="bits" select="($more - 5) * ($more != 10)"/>
        <xsl:with-param name="carry" select="$rest * ($more != 10)"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- What HMRC's receipt says of the mark: same, other, or nothing. -->
  <xsl:variable name="receipt-mark" select="string($answer//*[local-name() = 'IRmarkReceipt']//*[local-name() = 'DigestValue'])"/>
  <xsl:variable name="receipt">
    <xsl:choose>
      <xsl:when test="not($receipt-mark) or not(string($base64))"/>
      <xsl:when test="normalize-space($receipt-mark) = normalize-space($base64)">same</xsl:when>
      <xsl:otherwise>other</xsl:otherwise>
    </xsl:choose>
  </xsl:variable>

  <xsl:template name="mark">
    <xsl:if test="string($base32)">
      <section class="mark" aria-labelledby="irmark">
        <h2 id="irmark">IRmark</h2>
        <p class="base32"><xsl:call-template name="groups"><xsl:with-param name="text" select="string($base32)"/></xsl:call-template></p>
        <p>
          <xsl:text>In Base64: </xsl:text>
          <code><xsl:value-of select="$base64"/></code>
          <xsl:if test="string($log/IRmark/Base32IRMark/@TimeStamp)">
            <xsl:text>. Made on </xsl:text>
            <xsl:call-template name="moment"><xsl:with-param name="stamp" select="$log/IRmark/Base32IRMark/@TimeStamp"/></xsl:call-template>
          </xsl:if>
          <xsl:text>.</xsl:text>
        </p>
        <xsl:if test="$receipt = 'same'"><p><xsl:value-of select="$Who"/>&#8217;s receipt bears the same mark: what it has is what was sent.</p></xsl:if>
        <xsl:if test="$receipt = 'other'"><p class="warn"><xsl:value-of select="$Who"/>&#8217;s receipt bears another mark: it is not for this document.</p></xsl:if>
      </section>
    </xsl:if>
  </xsl:template>

  <!-- ======== Errors on the page ======== -->

  <xsl:template name="errors-of-hmrc">
    <xsl:if test="$hmrc-errors">
      <section aria-labelledby="hmrc">
        <h2 id="hmrc">What <xsl:value-of select="$who"/> found</h2>
        <xsl:call-template name="groupings">
          <xsl:with-param name="errors" select="$hmrc-errors"/>
          <xsl:with-param name="of" select="'hmrc'"/>
        </xsl:call-template>
      </section>
    </xsl:if>
  </xsl:template>

  <xsl:template name="errors-of-check">
    <xsl:if test="$check-errors">
      <section aria-labelledby="check">
        <h2 id="check">What the check before sending found</h2>
        <xsl:if test="$check-is-past"><p>These were found earlier in the same session; the last check passed or was left out.</p></xsl:if>
        <p class="count">
          <xsl:call-template name="counts"><xsl:with-param name="errors" select="$check-errors"/></xsl:call-template>
        </p>
        <xsl:call-template name="groupings">
          <xsl:with-param name="errors" select="$check-errors"/>
          <xsl:with-param name="of" select="'check'"/>
        </xsl:call-template>
      </section>
    </xsl:if>
  </xsl:template>

  <!-- "18 critical, 2 warnings" -->
  <xsl:template name="counts">
    <xsl:param name="errors"/>
    <xsl:variable name="lesser" select="$errors[Status = 'Warning' or Status = 'Minor' or Status = 'Information']"/>
    <xsl:value-of select="concat(format-number(count($errors) - count($lesser), '#,##0'), ' critical')"/>
    <xsl:if test="$errors[Status = 'Warning']">
      <xsl:text>, </xsl:text>
      <xsl:call-template name="plural">
        <xsl:with-param name="count" select="count($errors[Status = 'Warning'])"/>
        <xsl:with-param name="one" select="'warning'"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:if test="$errors[Status = 'Minor']"><xsl:value-of select="concat(', ', count($errors[Status = 'Minor']), ' minor')"/></xsl:if>
    <xsl:if test="$errors[Status = 'Information']"><xsl:value-of select="concat(', ', count($errors[Status = 'Information']), ' for information')"/></xsl:if>
  </xsl:template>

  <!-- The wanted grouping open, the two others folded below it. -->
  <xsl:template name="groupings">
    <xsl:param name="errors"/>
    <xsl:param name="of"/>
    <xsl:call-template name="grouping">
      <xsl:with-param name="errors" select="$errors"/>
      <xsl:with-param name="by" select="string($order)"/>
    </xsl:call-template>
    <xsl:if test="count($errors) &gt; 1">
      <xsl:call-template name="folded">
        <xsl:with-param name="errors" select="$errors"/>
        <xsl:with-param name="by" select="'employee'"/>
      </xsl:call-template>
      <xsl:call-template name="folded">
        <xsl:with-param name="errors" select="$errors"/>
        <xsl:with-param name="by" select="'field'"/>
      </xsl:call-template>
      <xsl:if test="$of = 'check'">
        <xsl:call-template name="folded">
          <xsl:with-param name="errors" select="$errors"/>
          <xsl:with-param name="by" select="'severity'"/>
        </xsl:call-template>
      </xsl:if>
    </xsl:if>
  </xsl:template>

  <xsl:template name="folded">
    <xsl:param name="errors"/>
    <xsl:param name="by"/>
    <xsl:if test="$by != string($order)">
      <details class="again">
        <summary>The same errors by <xsl:value-of select="$by"/></summary>
        <xsl:call-template name="grouping">
          <xsl:with-param name="errors" select="$errors"/>
          <xsl:with-param name="by" select="$by"/>
        </xsl:call-template>
      </details>
    </xsl:if>
  </xsl:template>

  <xsl:template name="grouping">
    <xsl:param name="errors"/>
    <xsl:param name="by"/>
    <xsl:choose>
      <xsl:when test="$by = 'field'">
        <xsl:for-each select="$errors[generate-id() = generate-id(key('by-field', &by-field;)[1])]">
          <xsl:sort select="FieldName"/>
          <xsl:call-template name="group">
            <xsl:with-param name="errors" select="key('by-field', &by-field;)"/>
            <xsl:with-param name="by" select="$by"/>
          </xsl:call-template>
        </xsl:for-each>
      </xsl:when>
      <xsl:when test="$by = 'severity'">
        <xsl:for-each select="$errors[generate-id() = generate-id(key('by-severity', &by-severity;)[1])]">
          <xsl:sort select="string-length(substring-before('Critical Warning Minor Information', Status))" data-type="number"/>
          <xsl:call-template name="group">
            <xsl:with-param name="errors" select="key('by-severity', &by-severity;)"/>
            <xsl:with-param name="by" select="$by"/>
          </xsl:call-template>
        </xsl:for-each>
      </xsl:when>
      <xsl:otherwise>
        <xsl:for-each select="$errors[generate-id() = generate-id(key('by-employee', &by-employee;)[1])]">
          <!-- HMRC's by their position; the check's stand in order already, since they have none. -->
          <xsl:sort select="substring-before(substring-after(*[local-name() = 'Location'], 'Employee['), ']')" data-type="number"/>
          <xsl:call-template name="group">
            <xsl:with-param name="errors" select="key('by-employee', &by-employee;)"/>
            <xsl:with-param name="by" select="$by"/>
          </xsl:call-template>
        </xsl:for-each>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- One group under its heading; the context is its first error. -->
  <xsl:template name="group">
    <xsl:param name="errors"/>
    <xsl:param name="by"/>
    <xsl:variable name="id" select="concat($by, '-', generate-id())"/>
    <xsl:variable name="with-values" select="boolean($errors[string(FieldValue)])"/>
    <h3 id="{$id}">
      <xsl:choose>
        <xsl:when test="$by = 'field'">
          <xsl:variable name="field"><xsl:apply-templates select="." mode="field"/></xsl:variable>
          <xsl:value-of select="$field"/>
          <xsl:if test="not(string($field))">Without a field</xsl:if>
        </xsl:when>
        <xsl:when test="$by = 'severity'"><xsl:apply-templates select="." mode="severity"/></xsl:when>
        <xsl:otherwise><xsl:apply-templates select="." mode="employee"/></xsl:otherwise>
      </xsl:choose>
    </h3>
    <table aria-labelledby="{$id}" role="table">
      <thead role="rowgroup">
        <tr role="row">
          <xsl:if test="$by != 'employee'"><th scope="col" role="columnheader">Employee</th></xsl:if>
          <xsl:if test="$by != 'field'"><th scope="col" role="columnheader">Field</th></xsl:if>
          <th scope="col" role="columnheader" class="wide">What is wrong</th>
          <xsl:if test="$with-values"><th scope="col" role="columnheader">Value</th></xsl:if>
          <xsl:if test="$by != 'severity'"><th scope="col" role="columnheader">Severity</th></xsl:if>
          <th scope="col" role="columnheader">Code</th>
        </tr>
      </thead>
      <tbody role="rowgroup">
        <xsl:for-each select="$errors">
          <xsl:sort select="string-length(substring-before('Critical Warning Minor Information', Status))" data-type="number"/>
          <xsl:variable name="severity"><xsl:apply-templates select="." mode="severity"/></xsl:variable>
          <tr role="row">
            <xsl:if test="$by != 'employee'">
              <td role="cell" data-label="Employee"><xsl:apply-templates select="." mode="employee"/></td>
            </xsl:if>
            <xsl:if test="$by != 'field'">
              <td role="cell" data-label="Field"><xsl:apply-templates select="." mode="field"/></td>
            </xsl:if>
            <td role="cell" data-label="What is wrong" class="wide"><xsl:apply-templates select="." mode="what"/></td>
            <xsl:if test="$with-values">
              <td role="cell" data-label="Value"><xsl:apply-templates select="." mode="value"/></td>
            </xsl:if>
            <xsl:if test="$by != 'severity'">
              <td role="cell" data-label="Severity"><span class="severity {$severity}"><xsl:value-of select="$severity"/></span></td>
            </xsl:if>
            <td role="cell" data-label="Code"><xsl:apply-templates select="." mode="code"/></td>
          </tr>
        </xsl:for-each>
      </tbody>
    </table>
  </xsl:template>

  <!-- ======== What happened when ======== -->

  <xsl:template name="timeline">
    <xsl:if test="$records">
      <section aria-labelledby="timeline">
        <h2 id="timeline">What happened when</h2>
        <table aria-labelledby="timeline" class="timeline">
          <thead>
            <tr>
              <th scope="col">Time</th>
              <th scope="col"><abbr title="Time since the step before">After</abbr></th>
              <th scope="col" class="wide">Step</th>
            </tr>
          </thead>
          <tbody>
            <xsl:for-each select="$records">
              <xsl:variable name="seconds"><xsl:apply-templates select="." mode="seconds"/></xsl:variable>
              <!-- The day, where it isn't that of the step before. -->
              <xsl:if test="position() &gt; 1 and substring(@TimeStamp, 1, 10) != substring(preceding-sibling::*[1]/@TimeStamp, 1, 10)">
                <tr><th scope="rowgroup" colspan="3"><xsl:call-template name="day"><xsl:with-param name="stamp" select="@TimeStamp"/></xsl:call-template></th></tr>
              </xsl:if>
              <tr>
                <td><xsl:call-template name="clock"><xsl:with-param name="stamp" select="@TimeStamp"/></xsl:call-template></td>
                <td>
                  <xsl:if test="string($seconds) and $seconds &gt; 0">
                    <xsl:if test="$seconds &gt;= 10"><xsl:attribute name="class">long</xsl:attribute></xsl:if>
                    <xsl:call-template name="duration"><xsl:with-param name="seconds" select="string($seconds)"/></xsl:call-template>
                  </xsl:if>
                </td>
                <td class="wide"><xsl:call-template name="say"><xsl:with-param name="text" select="string(.)"/></xsl:call-template></td>
              </tr>
            </xsl:for-each>
          </tbody>
        </table>
      </section>
    </xsl:if>
  </xsl:template>

  <xsl:template match="LogRecords/*" mode="seconds">
    <xsl:variable name="before" select="preceding-sibling::*[1]/@TimeStamp"/>
    <xsl:if test="$before">
      <xsl:call-template name="seconds">
        <xsl:with-param name="from" select="$before"/>
        <xsl:with-param name="to" select="@TimeStamp"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- ======== Messages ======== -->

  <xsl:template name="exchange">
    <xsl:variable name="unsent" select="$log/Submission/*[not($messages[self::ToGateway])]"/>
    <xsl:if test="$messages or $unsent">
      <section aria-labelledby="messages">
        <h2 id="messages">Messages</h2>
        <xsl:if test="$messages">
          <ol class="messages">
            <xsl:apply-templates select="$messages" mode="message"/>
          </ol>
        </xsl:if>
        <xsl:if test="$unsent">
          <xsl:if test="not($messages)"><p><xsl:choose>
            <xsl:when test="$handed">No exchange is recorded.</xsl:when>
            <xsl:otherwise>Nothing was exchanged with HMRC.</xsl:otherwise>
          </xsl:choose></p></xsl:if>
          <xsl:for-each select="$unsent">
            <details>
              <summary>The document as it was made</summary>
              <pre tabindex="0" role="region" aria-label="The document as XML"><xsl:apply-templates select="." mode="xml"/></pre>
            </details>
          </xsl:for-each>
        </xsl:if>
      </section>
    </xsl:if>
  </xsl:template>

  <xsl:template match="ToGateway | FromGateway" mode="message">
    <xsl:variable name="seconds"><xsl:apply-templates select="." mode="seconds"/></xsl:variable>
    <li>
      <p class="words">
        <span class="way">
          <xsl:if test="self::ToGateway">To <xsl:value-of select="$who"/></xsl:if>
          <xsl:if test="self::FromGateway and not(*/*[local-name() = 'GovTalkDetails']//*[local-name() = 'Number'] = '-9999')">From <xsl:value-of select="$who"/></xsl:if>
          <xsl:if test="self::FromGateway and */*[local-name() = 'GovTalkDetails']//*[local-name() = 'Number'] = '-9999'">No answer</xsl:if>
        </span>
        <xsl:text> </xsl:text>
        <strong><xsl:apply-templates select="." mode="words"/></strong>
      </p>
      <p class="when">
        <xsl:call-template name="moment"><xsl:with-param name="stamp" select="@TimeStamp"/></xsl:call-template>
        <xsl:if test="self::FromGateway and string($seconds)">
          <xsl:text>, after </xsl:text>
          <xsl:call-template name="duration"><xsl:with-param name="seconds" select="string($seconds)"/></xsl:call-template>
        </xsl:if>
        <xsl:if test="string(@Url)">
          <xsl:text>, to </xsl:text>
          <span class="address"><xsl:call-template name="say-address"><xsl:with-param name="url" select="string(@Url)"/></xsl:call-template></span>
        </xsl:if>
      </p>
      <xsl:apply-templates select="self::FromGateway" mode="more"/>
      <details>
        <summary>The message as it went</summary>
        <pre tabindex="0" role="region" aria-label="The message as XML"><xsl:apply-templates select="*" mode="xml"/></pre>
      </details>
    </li>
  </xsl:template>

  <xsl:template match="*" mode="message"/>

  <!-- ======== XML as text, without passwords ======== -->

  <xsl:template match="*" mode="xml">
    <xsl:param name="indent" select="''"/>
    <xsl:param name="hidden" select="false()"/>
    <xsl:variable name="name" select="translate(local-name(), $upper, $lower)"/>
    <!-- Of the sender's credentials only the user's ID, the method and the role are shown. -->
    <xsl:variable name="open" select="$name = 'senderid' or $name = 'method' or $name = 'role'"/>
    <xsl:variable name="hide" select="contains($name, 'password') or $name = 'idauthentication' or ($hidden and not($open))"/>
    <xsl:value-of select="concat($indent, '&lt;', name())"/>
    <!-- A declaration is no attribute: the namespace is told where it changes. -->
    <xsl:if test="namespace-uri() != namespace-uri(..) and namespace-uri()">
      <xsl:text> xmlns</xsl:text>
      <xsl:if test="contains(name(), ':')"><xsl:value-of select="concat(':', substring-before(name(), ':'))"/></xsl:if>
      <xsl:value-of select="concat('=&quot;', namespace-uri(), '&quot;')"/>
    </xsl:if>
    <xsl:for-each select="@*">
      <xsl:value-of select="concat(' ', name(), '=&quot;')"/>
      <xsl:choose>
        <xsl:when test="$hide or $hidden or contains(translate(local-name(), $upper, $lower), 'password')"><xsl:value-of select="$mask"/></xsl:when>
        <xsl:otherwise><xsl:call-template name="say"><xsl:with-param name="text" select="string(.)"/></xsl:call-template></xsl:otherwise>
      </xsl:choose>
      <xsl:text>"</xsl:text>
    </xsl:for-each>
    <xsl:choose>
      <xsl:when test="not(node())">/&gt;&#10;</xsl:when>
      <!-- The processor's stack has an end. -->
      <xsl:when test="string-length($indent) &gt; 400">&gt;... (deeper than this page shows)&#10;</xsl:when>
      <xsl:when test="not(*)">
        <xsl:text>&gt;</xsl:text>
        <xsl:choose>
          <xsl:when test="$hide"><xsl:value-of select="$mask"/></xsl:when>
          <xsl:otherwise><xsl:call-template name="cut"><xsl:with-param name="text" select="string(.)"/></xsl:call-template></xsl:otherwise>
        </xsl:choose>
        <xsl:value-of select="concat('&lt;/', name(), '&gt;&#10;')"/>
      </xsl:when>
      <xsl:otherwise>
        <xsl:text>&gt;&#10;</xsl:text>
        <xsl:variable name="employees" select="*[local-name() = 'Employee']"/>
        <xsl:for-each select="node()[not(local-name() = 'Employee')] | $employees[position() &lt;= $employees-shown]">
          <xsl:choose>
            <xsl:when test="self::*">
              <xsl:apply-templates select="." mode="xml">
                <xsl:with-param name="indent" select="concat($indent, '  ')"/>
                <xsl:with-param name="hidden" select="$hide or $hidden"/>
              </xsl:apply-templates>
            </xsl:when>
            <!-- Text between elements, comments and instructions. -->
            <xsl:when test="normalize-space(.)">
              <xsl:value-of select="concat($indent, '  ')"/>
              <xsl:choose>
                <xsl:when test="$hide or $hidden"><xsl:value-of select="$mask"/></xsl:when>
                <xsl:otherwise><xsl:call-template name="cut"><xsl:with-param name="text" select="string(.)"/></xsl:call-template></xsl:otherwise>
              </xsl:choose>
              <xsl:text>&#10;</xsl:text>
            </xsl:when>
          </xsl:choose>
        </xsl:for-each>
        <xsl:if test="count($employees) &gt; $employees-shown">
          <xsl:value-of select="concat($indent, '  (', format-number(count($employees) - $employees-shown, '#,##0'), ' more employees; the log file has them all)&#10;')"/>
        </xsl:if>
        <xsl:value-of select="concat($indent, '&lt;/', name(), '&gt;&#10;')"/>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- Employees that went compressed are one text without end. -->
  <xsl:template name="cut">
    <xsl:param name="text"/>
    <xsl:call-template name="say">
      <xsl:with-param name="text">
        <xsl:choose>
          <xsl:when test="string-length($text) &gt; 2000">
            <xsl:value-of select="concat(substring($text, 1, 200), '... (', format-number(string-length($text), '#,##0'), ' characters)')"/>
          </xsl:when>
          <xsl:otherwise><xsl:value-of select="$text"/></xsl:otherwise>
        </xsl:choose>
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- ======== The same matter as facts ======== -->

  <xsl:template name="fact">
    <xsl:param name="name"/>
    <xsl:param name="value"/>
    <xsl:if test="string($value) and not(string($value) = 'Unspecified')">
      <fact name="{$name}"><xsl:call-template name="say"><xsl:with-param name="text" select="string($value)"/></xsl:call-template></fact>
    </xsl:if>
  </xsl:template>

  <xsl:template name="facts">
    <facts>
      <fact name="outcome"><xsl:value-of select="$outcome"/></fact>
      <fact name="headline"><xsl:call-template name="headline"/></fact>
      <fact name="advice"><xsl:call-template name="advice"/></fact>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'type'"/><xsl:with-param name="value" select="$log/@SubmissionType"/></xsl:call-template>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'company'"/><xsl:with-param name="value" select="$log/@Company"/></xsl:call-template>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'paye_ref'"/><xsl:with-param name="value" select="$paye-ref"/></xsl:call-template>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'operator'"/><xsl:with-param name="value" select="$log/@Operator"/></xsl:call-template>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'mode'"/><xsl:with-param name="value" select="$log/@SubmissionModeDescr"/></xsl:call-template>
      <fact name="local"><xsl:value-of select="$is-local"/></fact>
      <fact name="test"><xsl:value-of select="$is-test"/></fact>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'year'"/><xsl:with-param name="value" select="$year"/></xsl:call-template>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'periods'"/><xsl:with-param name="value" select="$log/SubmissionPeriods"/></xsl:call-template>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'correlation_id'"/><xsl:with-param name="value" select="$log/CorrelationID"/></xsl:call-template>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'base64'"/><xsl:with-param name="value" select="$base64"/></xsl:call-template>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'base32'"/><xsl:with-param name="value" select="$base32"/></xsl:call-template>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'receipt'"/><xsl:with-param name="value" select="$receipt"/></xsl:call-template>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'began'"/><xsl:with-param name="value" select="$records[1]/@TimeStamp"/></xsl:call-template>
      <xsl:call-template name="fact"><xsl:with-param name="name" select="'took'"/><xsl:with-param name="value"><xsl:call-template name="whole"/></xsl:with-param></xsl:call-template>
      <xsl:for-each select="$hmrc-errors | $check-errors">
        <xsl:sort select="boolean(ancestor::ValidationErrors)"/>
        <error>
          <xsl:attribute name="from">
            <xsl:choose>
              <xsl:when test="ancestor::ValidationErrors">check</xsl:when>
              <xsl:otherwise>hmrc</xsl:otherwise>
            </xsl:choose>
          </xsl:attribute>
          <xsl:attribute name="employee"><xsl:apply-templates select="." mode="employee"/></xsl:attribute>
          <xsl:attribute name="field"><xsl:apply-templates select="." mode="field"/></xsl:attribute>
          <xsl:attribute name="value"><xsl:apply-templates select="." mode="value"/></xsl:attribute>
          <xsl:attribute name="severity"><xsl:apply-templates select="." mode="severity"/></xsl:attribute>
          <xsl:attribute name="code"><xsl:apply-templates select="." mode="code"/></xsl:attribute>
          <xsl:apply-templates select="." mode="what"/>
        </error>
      </xsl:for-each>
      <xsl:for-each select="$records">
        <step time="{@TimeStamp}">
          <xsl:attribute name="seconds"><xsl:apply-templates select="." mode="seconds"/></xsl:attribute>
          <xsl:call-template name="say"><xsl:with-param name="text" select="string(.)"/></xsl:call-template>
        </step>
      </xsl:for-each>
      <xsl:for-each select="$messages[self::ToGateway or self::FromGateway]">
        <message to="{boolean(self::ToGateway)}" time="{@TimeStamp}">
          <xsl:attribute name="seconds"><xsl:apply-templates select="." mode="seconds"/></xsl:attribute>
          <xsl:attribute name="url"><xsl:call-template name="say-address"><xsl:with-param name="url" select="string(@Url)"/></xsl:call-template></xsl:attribute>
          <xsl:apply-templates select="." mode="words"/>
        </message>
      </xsl:for-each>
    </facts>
  </xsl:template>

  <!-- ======== How it looks ======== -->

  <xsl:template name="style">
    <style>
      :root { --ink: #16202a; --dim: #4a5763; --paper: #fff; --line: #c5ced6; --soft: #f2f5f7; --link: #0b4f8a;
        --ok: #0b6b3a; --bad: #a3161f; --wait: #8a5200; --plain: #41505d; }
      @media (prefers-color-scheme: dark) {
        :root { --ink: #e8edf1; --dim: #b4c0ca; --paper: #12181e; --line: #43515d; --soft: #1d262e; --link: #8cc4f5;
          --ok: #5fd394; --bad: #ff8e8e; --wait: #f2b95f; --plain: #b4c0ca; }
      }
      * { box-sizing: border-box; }
      html { -webkit-text-size-adjust: 100%; }
      body { margin: 0 auto; padding: 1rem; max-width: 62rem; font: 1rem/1.5 system-ui, -apple-system, "Segoe UI", sans-serif;
        color: var(--ink); background: var(--paper); overflow-wrap: anywhere; }
      h1 { font-size: 1.6rem; line-height: 1.2; margin: 0; }
      h2 { font-size: 1.25rem; line-height: 1.3; margin: 2rem 0 .5rem; }
      h3 { font-size: 1.05rem; margin: 1.25rem 0 .25rem; }
      header p, footer, .when, .count { color: var(--dim); margin: .25rem 0; }
      footer { border-top: 1px solid var(--line); margin-top: 2rem; padding-top: .5rem; font-size: .9rem; }
      a { color: var(--link); }
      :focus-visible { outline: 3px solid var(--link); outline-offset: 2px; }
      .outcome { border: 1px solid; border-left-width: .6rem; padding: .75rem 1rem; margin: 1rem 0; background: var(--soft); }
      .outcome h2 { margin: 0; font-size: 1.35rem; }
      .outcome p { margin: .35rem 0 0; color: var(--ink); }
      .ok { color: var(--ok); } .bad { color: var(--bad); } .wait { color: var(--wait); } .plain { color: var(--plain); }
      .warn { color: var(--bad); font-weight: 600; }
      nav ul { display: flex; flex-wrap: wrap; gap: .25rem 1.25rem; list-style: none; margin: 0; padding: 0; }
      nav a { display: inline-block; padding: .25rem 0; }
      dl { margin: 0; border-top: 1px solid var(--line); }
      dl div { display: grid; grid-template-columns: 9rem 1fr; gap: .75rem; padding: .35rem 0; border-bottom: 1px solid var(--line); }
      dt { color: var(--dim); } dd { margin: 0; }
      .base32 { font: 600 1.3rem/1.5 ui-monospace, "DejaVu Sans Mono", Consolas, monospace; margin: .25rem 0; }
      .base32 span { display: inline-block; margin-right: .7em; letter-spacing: .08em; }
      .mark { border: 1px solid var(--line); padding: .5rem 1rem; margin-top: 2rem; }
      .mark h2 { margin-top: 0; }
      table { border-collapse: collapse; width: 100%; }
      th, td { text-align: left; vertical-align: top; padding: .35rem .6rem .35rem 0; border-bottom: 1px solid var(--line); }
      th { color: var(--dim); font-weight: 600; }
      td { min-width: 4.5rem; }
      .wide { width: 50%; }
      .timeline .wide { width: 100%; }
      .timeline td:not(.wide) { white-space: nowrap; overflow-wrap: normal; font-variant-numeric: tabular-nums; }
      .timeline .long { font-weight: 600; }
      abbr { text-decoration: none; }
      .severity { white-space: nowrap; } .Critical { color: var(--bad); font-weight: 600; } .Warning { color: var(--wait); font-weight: 600; }
      details { margin: .5rem 0; }
      summary { cursor: pointer; color: var(--link); padding: .25rem 0; }
      .again { border-top: 1px solid var(--line); margin-top: .75rem; }
      .messages { padding-left: 1.5rem; }
      .messages li { margin: 0 0 1rem; padding-left: .25rem; }
      .messages p { margin: .15rem 0; }
      .way { border: 1px solid var(--line); border-radius: .25rem; padding: 0 .4rem; font-size: .85rem; white-space: nowrap; }
      .quote { border-left: 3px solid var(--line); padding-left: .6rem; white-space: pre-line; }
      pre { background: var(--soft); border: 1px solid var(--line); padding: .75rem; margin: .25rem 0; overflow: auto; max-height: 30rem;
        font: .85rem/1.45 ui-monospace, "DejaVu Sans Mono", Consolas, monospace; white-space: pre-wrap; }
      @media (max-width: 40rem) {
        table:not(.timeline) thead { position: absolute; width: 1px; height: 1px; overflow: hidden; clip-path: inset(50%); }
        table:not(.timeline), table:not(.timeline) tbody { display: block; }
        table:not(.timeline) tr { display: block; padding: .4rem 0; border-bottom: 1px solid var(--line); }
        table:not(.timeline) td { display: grid; grid-template-columns: 7rem 1fr; gap: .5rem; width: auto; border: 0; padding: .1rem 0; }
        table:not(.timeline) td:empty { display: none; }
        table:not(.timeline) td::before { content: attr(data-label); color: var(--dim); }
        dl div { grid-template-columns: 7rem 1fr; gap: .5rem; }
        .base32 { font-size: 1.15rem; }
        .timeline { font-size: .9rem; }
        .timeline td { min-width: 0; padding-right: .5rem; }
        .messages { padding-left: 1.25rem; }
      }
      @media print {
        :root { --ink: #000; --dim: #333; --paper: #fff; --line: #999; --soft: #fff; --link: #000;
          --ok: #000; --bad: #000; --wait: #000; --plain: #000; }
        body { padding: 0; max-width: none; font-size: 10pt; }
        nav, details { display: none; }
        h2, h3 { break-after: avoid; } tr, .mark, .outcome, li { break-inside: avoid; }
        thead { display: table-header-group; }
      }
    </style>
  </xsl:template>
</xsl:stylesheet>
